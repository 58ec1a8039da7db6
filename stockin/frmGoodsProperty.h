#pragma once
// New goods: one article in one size and one colour, stored as a goods row,
// its history row and its cost layer, and shown in the stock-in list.
#include <memory>

#include "Form.h"

namespace Ui {
class frmGoodsProperty;
}
class frmBuyIn;

class frmGoodsProperty : public Form {
    Q_OBJECT
public:
    // buyIn: the open stock-in window whose list gets the stored row (may be null).
    explicit frmGoodsProperty(frmBuyIn* buyIn, QWidget* parent = nullptr);
    ~frmGoodsProperty() override;

    Ui::frmGoodsProperty* ui() { return ui_.get(); }

private:
    void cmdPutIn_Click();
    void cmdClear_Click();

    std::unique_ptr<Ui::frmGoodsProperty> ui_;
    frmBuyIn* buyIn_;
};
