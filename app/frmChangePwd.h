#pragma once
// Changes the current user's own password.
#include <memory>

#include "Form.h"

namespace Ui {
class frmChangePwd;
}

class frmChangePwd : public Form {
    Q_OBJECT
public:
    explicit frmChangePwd(QWidget* parent = nullptr);
    ~frmChangePwd() override;
    Ui::frmChangePwd* ui() { return ui_.get(); }

private:
    void cmdOk_Click();
    std::unique_ptr<Ui::frmChangePwd> ui_;
};
