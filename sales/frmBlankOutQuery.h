#pragma once
// The voids of a period.
#include <memory>

#include "Form.h"

namespace Ui {
class frmBlankOutQuery;
}

class frmBlankOutQuery : public Form {
    Q_OBJECT
public:
    explicit frmBlankOutQuery(QWidget* parent = nullptr);
    ~frmBlankOutQuery() override;

    Ui::frmBlankOutQuery* ui() { return ui_.get(); }

private:
    void cmdQuery_Click();

    std::unique_ptr<Ui::frmBlankOutQuery> ui_;
};
