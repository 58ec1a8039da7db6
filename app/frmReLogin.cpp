#include "frmReLogin.h"

#include "ModMain.h"
#include "MsgBox.h"
#include "On.h"
#include "Session.h"
#include "frmMain.h"
#include "ui_frmReLogin.h"

frmReLogin::frmReLogin(QWidget* parent) : Form(parent), ui_(std::make_unique<Ui::frmReLogin>()) {
    ui_->setupUi(this);
    EnterToTab(ui_->txtUserNo);
    On(ui_->cmdLogin, &QPushButton::clicked, this, [this] { cmdLogin_Click(); });
    On(ui_->txtUserPassWord, &QLineEdit::returnPressed, this, [this] { cmdLogin_Click(); });
    On(ui_->cmdExit, &QPushButton::clicked, this, [this] { reject(); });
}

frmReLogin::~frmReLogin() = default;

void frmReLogin::cmdLogin_Click() {
    clsUser& user = Session::User();
    // The user is loaded before the password is checked: a wrong password
    // still leaves that user in the session.
    if (!user.Initial(ui_->txtUserNo->text())) {
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
    accept();
    if (frmMain* m = frmMain::Instance()) m->LoadPopdem();
}
