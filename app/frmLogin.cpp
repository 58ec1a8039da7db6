#include "frmLogin.h"

#include <QApplication>

#include "ModMain.h"
#include "MsgBox.h"
#include "On.h"
#include "Session.h"
#include "ui_frmLogin.h"

frmLogin::frmLogin(QWidget* parent) : Form(parent), ui_(std::make_unique<Ui::frmLogin>()) {
    ui_->setupUi(this);
    EnterToTab(ui_->txtUserNo);
    On(ui_->cmdLogin, &QPushButton::clicked, this, [this] { cmdLogin_Click(); });
    On(ui_->txtUserPassWord, &QLineEdit::returnPressed, this, [this] { cmdLogin_Click(); });
    On(ui_->cmdExit, &QPushButton::clicked, this, [this] { reject(); });
}

frmLogin::~frmLogin() = default;

namespace {
// Restores the normal pointer and the button however the handler ends.
struct BusyPointer {
    QPushButton* button;
    explicit BusyPointer(QPushButton* b) : button(b) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    }
    ~BusyPointer() {
        QApplication::restoreOverrideCursor();
        button->setEnabled(true);
    }
};
}  // namespace

void frmLogin::cmdLogin_Click() {
    if (!ui_->cmdLogin->isEnabled()) return;
    BusyPointer busy(ui_->cmdLogin);

    // The current shop is the first row of Shop, whatever it is.
    bool isErr = false;
    Recordset shop = Session::Dbopt().Excute(QStringLiteral("select * from Shop"), isErr);
    if (!isErr && !shop.Eof()) {
        Session::ShopNo = shop.Text("GUID");
        Session::ShopName = shop.Text("ShopName");
    }

    clsUser& user = Session::User();
    const bool found = user.Initial(ui_->txtUserNo->text());
    ui_->cmdLogin->setEnabled(false);
    if (!found) {
        MsgBox::Info(QStringLiteral("该用户不存在！"), QStringLiteral("提示"));
        ui_->txtUserNo->setFocus();
        ui_->txtUserNo->selectAll();
        ui_->txtUserPassWord->clear();
        return;
    }
    if (user.PassWord != ui_->txtUserPassWord->text()) {
        MsgBox::Info(QStringLiteral("密码错误！"), QStringLiteral("提示"));
        ui_->txtUserPassWord->setFocus();
        ui_->txtUserPassWord->clear();
        return;
    }
    // The rules always come from the default shop's row.
    Session::SellRole().Initial(kDefaultShop);
    loggedIn_ = true;
    accept();
}
