#include "SalesCommands.h"

#include "Commands.h"
#include "Modal.h"
#include "frmBlankOutQuery.h"
#include "frmBlankout.h"
#include "frmSell.h"
#include "frmSellRole.h"

void RegisterSalesCommands() {
    Commands::Register("SellRole", [](QWidget* parent) {
        frmSellRole f(parent);
        Modal::Show(&f);
    });
    Commands::Register("SellOut", [](QWidget* parent) {
        frmSell f(parent);
        Modal::Show(&f);
    });
    Commands::Register("BlankOut", [](QWidget* parent) {
        frmBlankout f(parent);
        Modal::Show(&f);
    });
    Commands::Register("BlankOutQuery", [](QWidget* parent) {
        frmBlankOutQuery f(parent);
        Modal::Show(&f);
    });
}
