#pragma once
// The other expenses of a period, with their grand total; single rows can be
// deleted.
#include <memory>

#include "Form.h"

namespace Ui {
class frmOtherOutQuery;
}

class frmOtherOutQuery : public Form {
    Q_OBJECT
public:
    explicit frmOtherOutQuery(QWidget* parent = nullptr);
    ~frmOtherOutQuery() override;

    Ui::frmOtherOutQuery* ui() { return ui_.get(); }

private:
    void cmdQuery_Click();
    void cmdDel_Click();

    std::unique_ptr<Ui::frmOtherOutQuery> ui_;
};
