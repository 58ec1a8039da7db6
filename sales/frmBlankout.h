#pragma once
// Voiding a sale, one piece at a time: the piece goes back to stock and to
// the cost layer it came from, the sale line is marked void and a copy kept.
#include <memory>

#include "Form.h"
#include "Recordset.h"

namespace Ui {
class frmBlankout;
}

class frmBlankout : public Form {
    Q_OBJECT
public:
    explicit frmBlankout(QWidget* parent = nullptr);
    ~frmBlankout() override;

    Ui::frmBlankout* ui() { return ui_.get(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowRows(const Recordset& rs);
    void txtSellNo_Enter();
    void cmdOk_Click();

    std::unique_ptr<Ui::frmBlankout> ui_;
};
