#pragma once
// The shop's exchanges and returns by the day they were carried out, each on
// its own tab with its own dates. Showing a tab runs its query.
#include <memory>

#include "Form.h"

namespace Ui {
class frmBackChangeQuery;
}

class frmBackChangeQuery : public Form {
    Q_OBJECT
public:
    explicit frmBackChangeQuery(QWidget* parent = nullptr);
    ~frmBackChangeQuery() override;

    Ui::frmBackChangeQuery* ui() { return ui_.get(); }

private:
    void QueryExchanges();
    // Index 0: exchanges, 1: returns.
    void cmdQuery_Click(int Index);

    std::unique_ptr<Ui::frmBackChangeQuery> ui_;
};
