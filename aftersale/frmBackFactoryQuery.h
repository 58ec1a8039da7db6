#pragma once
// What went back to the factory between two dates, with a total per article.
#include <memory>

#include "Form.h"

namespace Ui {
class frmBackFactoryQuery;
}

class frmBackFactoryQuery : public Form {
    Q_OBJECT
public:
    explicit frmBackFactoryQuery(QWidget* parent = nullptr);
    ~frmBackFactoryQuery() override;

    Ui::frmBackFactoryQuery* ui() { return ui_.get(); }

private:
    void QueryFactoryBack();

    std::unique_ptr<Ui::frmBackFactoryQuery> ui_;
};
