#pragma once
// The sale lines of a period, by brand and kind, with totals per article and
// over all, the count of lines and the money taken.
#include <memory>

#include "Form.h"

namespace Ui {
class frmSellQuery;
}

class frmSellQuery : public Form {
    Q_OBJECT
public:
    explicit frmSellQuery(QWidget* parent = nullptr);
    ~frmSellQuery() override;

    Ui::frmSellQuery* ui() { return ui_.get(); }

private:
    void cmdQuery_Click();

    std::unique_ptr<Ui::frmSellQuery> ui_;
};
