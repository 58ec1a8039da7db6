#pragma once
// Price change: the retail price of one goods row, or of every row of an
// article number in the shop. Costs and sales stay as they are.
#include <memory>

#include "Form.h"

namespace Ui {
class frmChangePrice;
}
class QLineEdit;

class frmChangePrice : public Form {
    Q_OBJECT
public:
    explicit frmChangePrice(QWidget* parent = nullptr);
    ~frmChangePrice() override;

    Ui::frmChangePrice* ui() { return ui_.get(); }

private:
    void FillList(const QString& sql);
    void txtNo_Enter();
    // Key is the row's GUID, or its article number when ByTypeNo.
    void ChangePrice(QLineEdit* NewPrice, bool ByTypeNo, const QString& Key);

    std::unique_ptr<Ui::frmChangePrice> ui_;
};
