#include "AftersaleCommands.h"

#include "Commands.h"
#include "Modal.h"
#include "frmBackChangeQuery.h"
#include "frmBackFactoryQuery.h"
#include "frmClientBack.h"
#include "frmClientBackChange.h"
#include "frmFactoryBack.h"
#include "frmQuestion.h"

namespace {
template <typename Window>
void Open(QWidget* parent) {
    Window f(parent);
    Modal::Show(&f);
}
}  // namespace

void RegisterAftersaleCommands() {
    Commands::Register("ClientBack", Open<frmClientBack>);
    Commands::Register("ClientBackChange", Open<frmClientBackChange>);
    Commands::Register("Question", Open<frmQuestion>);
    Commands::Register("CompanyBack", Open<frmFactoryBack>);
    Commands::Register("Back", Open<frmBackFactoryQuery>);
    Commands::Register("ClientChangeQuery", Open<frmBackChangeQuery>);
}
