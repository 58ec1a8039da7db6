#pragma once
// Problem goods go back to the factory. The clerk ticks rows of the problem
// stock, the window proposes the sum of their cost as the amount the factory
// owes, and confirming writes one record for the whole batch and marks each
// ticked row as returned. Stock and cost layers are not touched: the goods
// left both when they entered the problem stock.
#include <memory>

#include "Form.h"

namespace Ui {
class frmFactoryBack;
}

class frmFactoryBack : public Form {
    Q_OBJECT
public:
    explicit frmFactoryBack(QWidget* parent = nullptr);
    ~frmFactoryBack() override;

    Ui::frmFactoryBack* ui() { return ui_.get(); }

    // The column of the ticks, in place of the fault.
    static constexpr int kTickCol = 12;

private:
    void LoadBackStore();
    void SumBackAmount();
    void cmdAll_Click();
    void cmdRegist_Click();
    bool Ticked(int row) const;

    std::unique_ptr<Ui::frmFactoryBack> ui_;
};
