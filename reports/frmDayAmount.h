#pragma once
// The day's close of the clerk who is logged in: what was sold, taken back
// and exchanged on a date, what is to be handed in, kept in one DayAmount row.
#include <cstdint>
#include <memory>

#include "Form.h"

namespace Ui {
class frmDayAmount;
}

class frmDayAmount : public Form {
    Q_OBJECT
public:
    explicit frmDayAmount(QWidget* parent = nullptr);
    ~frmDayAmount() override;

    Ui::frmDayAmount* ui() { return ui_.get(); }

private:
    void cmdCheckOut_Click();
    void Compute();
    void Save();

    std::unique_ptr<Ui::frmDayAmount> ui_;
    int16_t SellQuantity = 0;
    int16_t BackQuantity = 0;
    int16_t ChangeQuantity = 0;
    float SellAmount = 0;
    float BackAmount = 0;
    float ChangeAmount = 0;
    float ReciveAmount = 0;
};
