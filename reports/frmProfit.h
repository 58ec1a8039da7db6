#pragma once
// What was bought, sold and sent back to the factory in a period, the stock
// left at cost, and the gross and net profit.
#include <memory>

#include "Form.h"

namespace Ui {
class frmProfit;
}

class frmProfit : public Form {
    Q_OBJECT
public:
    explicit frmProfit(QWidget* parent = nullptr);
    ~frmProfit() override;

    Ui::frmProfit* ui() { return ui_.get(); }

private:
    void cmdQuery_Click();

    std::unique_ptr<Ui::frmProfit> ui_;
};
