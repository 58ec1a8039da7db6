#pragma once
// Puts another user in the place of the one logged in.
#include <memory>

#include "Form.h"

namespace Ui {
class frmReLogin;
}

class frmReLogin : public Form {
    Q_OBJECT
public:
    explicit frmReLogin(QWidget* parent = nullptr);
    ~frmReLogin() override;
    Ui::frmReLogin* ui() { return ui_.get(); }

private:
    void cmdLogin_Click();
    std::unique_ptr<Ui::frmReLogin> ui_;
};
