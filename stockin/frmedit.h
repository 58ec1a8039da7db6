#pragma once
// Correction of one stock-in record: the old record is taken back and the
// corrected entry stored as a new stock-in, with new goods and history rows.
#include <memory>

#include "Form.h"

namespace Ui {
class frmedit;
}
class VSGrid;

class frmedit : public Form {
    Q_OBJECT
public:
    explicit frmedit(QWidget* parent = nullptr);
    ~frmedit() override;

    // Takes the record list of the stock-in records window, its current row
    // being the record to correct; the window writes back into that grid.
    void LoadIt(VSGrid* Grid);

    Ui::frmedit* ui() { return ui_.get(); }
    float Price() const { return Price_; }

private:
    void cmdOk_Click();
    // The corrected entry; false when a box failed its check (nothing stored).
    bool StoreEntry(int row);

    std::unique_ptr<Ui::frmedit> ui_;
    VSGrid* Grid_ = nullptr;
    QString ParentGUID_;
    QString GUID_;
    float Price_ = 0;  // retail price of the goods row
};
