#pragma once
// The login window: loads the shop, the user with the rights of the role and
// the rules, then hands over to the main window.
#include <memory>

#include "Form.h"

namespace Ui {
class frmLogin;
}

class frmLogin : public Form {
    Q_OBJECT
public:
    explicit frmLogin(QWidget* parent = nullptr);
    ~frmLogin() override;

    // True once a user logged in (the window then closes as accepted).
    bool LoggedIn() const { return loggedIn_; }
    Ui::frmLogin* ui() { return ui_.get(); }

private:
    void cmdLogin_Click();

    std::unique_ptr<Ui::frmLogin> ui_;
    bool loggedIn_ = false;
};
