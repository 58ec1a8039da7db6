#pragma once
// The ranking of a period: pieces sold per goods row description, most sold
// first.
#include <memory>

#include "Form.h"

namespace Ui {
class frmSellGroup;
}

class frmSellGroup : public Form {
    Q_OBJECT
public:
    explicit frmSellGroup(QWidget* parent = nullptr);
    ~frmSellGroup() override;

    Ui::frmSellGroup* ui() { return ui_.get(); }

private:
    void cmdQuery_Click();

    std::unique_ptr<Ui::frmSellGroup> ui_;
};
