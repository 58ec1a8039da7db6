#pragma once
// Batch stock-in: one article in many colours and sizes. Ticked colours are
// the rows and ticked sizes the columns of a quantity matrix with a total row
// and a total column; every filled cell is stored as a goods row of its own.
#include <QSet>
#include <memory>

#include "Form.h"

namespace Ui {
class frmbatchbuyIn;
}
class frmBuyIn;
class QListWidget;
class QListWidgetItem;
class QLineEdit;

class frmbatchbuyIn : public Form {
    Q_OBJECT
public:
    // buyIn: the open stock-in window whose list gets the stored rows (may be null).
    explicit frmbatchbuyIn(frmBuyIn* buyIn, QWidget* parent = nullptr);
    ~frmbatchbuyIn() override;

    Ui::frmbatchbuyIn* ui() { return ui_.get(); }

private:
    void listCoulor_ItemCheck(QListWidgetItem* item);
    void listSize_ItemCheck(QListWidgetItem* item);
    // Row and column sums of the whole matrix; a sum of zero shows empty.
    void SumAll();
    void VSFlexGrid_BeforeEdit(int row, int col, bool& cancel);
    void VSFlexGrid_AfterEdit(int row, int col);
    void AddToList(QLineEdit* box, QListWidget* list, const QString& item);
    void cmdInStore_Click();
    void cmdClear_Click();

    std::unique_ptr<Ui::frmbatchbuyIn> ui_;
    frmBuyIn* buyIn_;
    // The entries of the two lists that are ticked, so that only a change of
    // the tick runs the matrix routines.
    QSet<QListWidgetItem*> ticked_;
};
