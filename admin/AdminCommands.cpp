#include "AdminCommands.h"

#include "Commands.h"
#include "Modal.h"
#include "frmBackup.h"
#include "frmChangeShop.h"
#include "frmUser.h"

void RegisterAdminCommands() {
    Commands::Register(QStringLiteral("UserManage"), [](QWidget* parent) {
        frmUser f(parent);
        Modal::Show(&f);
    });
    Commands::Register(QStringLiteral("ChangeShop"), [](QWidget* parent) {
        frmChangeShop f(parent);
        Modal::Show(&f);
    });
    Commands::Register(QStringLiteral("BackUpDate"), [](QWidget* parent) {
        frmBackup f(parent);
        Modal::Show(&f);
    });
}
