#include "StockinCommands.h"

#include "Commands.h"
#include "Modal.h"
#include "frmBuyIn.h"
#include "frmChangePrice.h"
#include "frmPutIn.h"
#include "frmbuyInDetail.h"

void RegisterStockinCommands() {
    Commands::Register(QStringLiteral("BuyIn"), [](QWidget* parent) {
        frmBuyIn f(parent);
        Modal::Show(&f);
    });
    Commands::Register(QStringLiteral("BuyInDetail"), [](QWidget* parent) {
        frmbuyInDetail f(parent);
        Modal::Show(&f);
    });
    Commands::Register(QStringLiteral("putin"), [](QWidget* parent) {
        frmPutIn f(parent);
        Modal::Show(&f);
    });
    Commands::Register(QStringLiteral("ChangePrice"), [](QWidget* parent) {
        frmChangePrice f(parent);
        Modal::Show(&f);
    });
}
