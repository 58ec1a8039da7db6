#pragma once
// The settled days of every clerk of the shop over a period, with one row
// of totals: the basis of the clerks' commission.
#include <memory>

#include "Form.h"

namespace Ui {
class frmAmountTotal;
}

class frmAmountTotal : public Form {
    Q_OBJECT
public:
    explicit frmAmountTotal(QWidget* parent = nullptr);
    ~frmAmountTotal() override;

    Ui::frmAmountTotal* ui() { return ui_.get(); }

private:
    void cmdQuery_Click();

    std::unique_ptr<Ui::frmAmountTotal> ui_;
};
