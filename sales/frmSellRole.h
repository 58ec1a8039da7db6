#pragma once
// The rules of the counter: cost layer order, what may be returned and
// exchanged and for how long, and the receipt printer. Saved to the rule row
// and to the session's rules at once.
#include <memory>

#include "Form.h"

namespace Ui {
class frmSellRole;
}

class frmSellRole : public Form {
    Q_OBJECT
public:
    explicit frmSellRole(QWidget* parent = nullptr);
    ~frmSellRole() override;

    Ui::frmSellRole* ui() { return ui_.get(); }

private:
    void SSTab_Click(int tab);
    void SaveRules();

    std::unique_ptr<Ui::frmSellRole> ui_;
};
