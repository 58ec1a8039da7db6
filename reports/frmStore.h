#pragma once
// What the shop has in stock: the saleable goods with a total per article
// and a grand total, and the problem goods waiting to go back to the factory.
#include <memory>

#include "Form.h"

namespace Ui {
class frmStore;
}

class frmStore : public Form {
    Q_OBJECT
public:
    explicit frmStore(QWidget* parent = nullptr);
    ~frmStore() override;

    Ui::frmStore* ui() { return ui_.get(); }

private:
    // Where a list of saleable goods was asked for: the article number box
    // sets no merging and adds no sums to an empty list.
    enum class From { Load, Query, Tab, ArticleNo };

    QString Head() const;
    QString Tail() const;
    void ShowStore(const QString& sql, From from);
    void ShowQuestion();
    void cmdQuery_Click();
    void txtNo_Change();
    void TabStrip_Click(int tab);

    std::unique_ptr<Ui::frmStore> ui_;
};
