#pragma once
// A customer brings one sold piece back. The sale line is found by its sale
// number, article number or date; the shop's rules decide whether it may go
// back; the piece goes into the problem stock or back onto the shelf and the
// very cost layer it was sold from, and the line is marked returned.
#include <memory>

#include "Form.h"

namespace Ui {
class frmClientBack;
}

class frmClientBack : public Form {
    Q_OBJECT
public:
    explicit frmClientBack(QWidget* parent = nullptr);
    ~frmClientBack() override;

    Ui::frmClientBack* ui() { return ui_.get(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void InitSellGrid();
    void HideWorkColumns();
    void ShowRefund();
    void cmdQuery_Click();
    void cmdOk_Click();
    void InsertBackStore();
    void InsertSellChange();
    void SetSellReturned();
    void RestoreStore();
    void RestoreCostLayer();

    std::unique_ptr<Ui::frmClientBack> ui_;
};
