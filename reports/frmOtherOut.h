#pragma once
// Records one expense outside stock and sales (rent, wages, ...).
#include <memory>

#include "Form.h"

namespace Ui {
class frmOtherOut;
}

class frmOtherOut : public Form {
    Q_OBJECT
public:
    explicit frmOtherOut(QWidget* parent = nullptr);
    ~frmOtherOut() override;

    Ui::frmOtherOut* ui() { return ui_.get(); }

private:
    void cmdQuery_Click();

    std::unique_ptr<Ui::frmOtherOut> ui_;
};
