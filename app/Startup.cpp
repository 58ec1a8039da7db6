#include "Startup.h"

#include "Modal.h"
#include "MsgBox.h"
#include "Session.h"
#include "frmLogin.h"
#include "frmMain.h"

namespace Startup {

bool Main() {
    Session::Create();
    if (!Session::Dbopt().ConnectionToDB()) {
        MsgBox::Info(QStringLiteral("连接数据库失败！"), QStringLiteral("提示"));
        return false;
    }
    bool loggedIn = false;
    {
        frmLogin login;
        Modal::Show(&login);
        loggedIn = login.LoggedIn();
    }
    if (!loggedIn) return false;
    auto* main = new frmMain;
    main->setAttribute(Qt::WA_DeleteOnClose);
    main->show();
    return true;
}

}  // namespace Startup
