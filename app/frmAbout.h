#pragma once
// About the product.
#include <memory>

#include "Form.h"

namespace Ui {
class frmAbout;
}

class frmAbout : public Form {
    Q_OBJECT
public:
    explicit frmAbout(QWidget* parent = nullptr);
    ~frmAbout() override;
    static const QStringList& SystemInfoTools();

private:
    std::unique_ptr<Ui::frmAbout> ui_;
};
