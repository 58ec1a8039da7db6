#include "ReportsCommands.h"

#include "Commands.h"
#include "Modal.h"
#include "frmAmountTotal.h"
#include "frmDayAmount.h"
#include "frmOtherOut.h"
#include "frmOtherOutQuery.h"
#include "frmProfit.h"
#include "frmSellGroup.h"
#include "frmSellQuery.h"
#include "frmStore.h"

namespace {
template <typename Window>
void Add(const char* key) {
    Commands::Register(QString::fromLatin1(key), [](QWidget* parent) {
        Window f(parent);
        Modal::Show(&f);
    });
}
}  // namespace

void RegisterReportsCommands() {
    Add<frmDayAmount>("DayAmount");
    Add<frmAmountTotal>("AmountTotal");
    Add<frmProfit>("Profit");
    Add<frmStore>("StoreQuery");
    Add<frmSellQuery>("SellQuery");
    Add<frmSellGroup>("SellGroup");
    Add<frmOtherOut>("OtherOut");
    Add<frmOtherOutQuery>("OtherOutQuery");
}
