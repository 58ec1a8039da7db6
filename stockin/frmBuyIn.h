#pragma once
// Stock-in: the shop's goods list narrowed by article number, restock of the
// picked row, and the doors to new goods and to the colour-by-size batch.
#include <memory>

#include "Form.h"

namespace Ui {
class frmBuyIn;
}
class VSGrid;

class frmBuyIn : public Form {
    Q_OBJECT
public:
    explicit frmBuyIn(QWidget* parent = nullptr);
    ~frmBuyIn() override;

    // The goods list.
    VSGrid* Grid() const;
    // Appends a row that an entry window stored (tab-separated, cell 0 first)
    // and makes it the current row, the one a restock then goes to.
    void AppendGoods(const QString& tabText);
    Ui::frmBuyIn* ui() { return ui_.get(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void FillList(const QString& sql);
    void txtNo_Change();
    void cmdPutIn_Click();
    void cmdNewGoods_Click();
    void Command1_Click();

    std::unique_ptr<Ui::frmBuyIn> ui_;
};
