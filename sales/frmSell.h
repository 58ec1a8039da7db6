#pragma once
// The counter: goods are found by article number or bar code, collected in
// the pre-sale list one row per piece, paid and checked out; the receipt is
// printed and the window is ready for the next customer. Driven from the
// keyboard: a chain of Enter and arrow keys, and F1 to F8 for the whole window.
#include <memory>

#include "Form.h"
#include "MsgBox.h"

namespace Ui {
class frmSell;
}
class QMenu;
class QAction;
struct ReceiptData;

class frmSell : public Form {
    Q_OBJECT
public:
    explicit frmSell(QWidget* parent = nullptr);
    ~frmSell() override;

    Ui::frmSell* ui() { return ui_.get(); }
    QMenu* PopupMenu() const { return Main_; }

    // Pieces of this goods row already in the pre-sale list.
    int16_t CountInBasket(const QString& guid) const;
    // Adds the pieces of the current line (quantity, discount or special price).
    void AddToBasket(const QString& guid);
    // Removes the current piece of the pre-sale list (Del, popup "取消").
    void Cancel();

    // Receipts: the first print at checkout (only when the rules say so) and
    // the reprint of the last sale (F8).
    void PrintBig();
    void PrintSmall();
    void ReprintBig();
    void ReprintSmall();

    // The key handling of the whole window, before the control with the focus.
    void Form_KeyDown(int key);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void LoadGoods();
    void BindGoods(const QString& sql);
    void InitBasket();
    QString GoodsSelect() const;
    bool GoodsEmpty() const;
    bool StockShort() const;
    bool QuantityPasses(MsgBox::Icon icon);

    void txtNo_Change();
    void txtNo_Down();
    void txtIDCode_Enter();
    void txtQuatity_Enter();
    void txtAbate_Change();
    void txtAbate_Enter();
    void txtChangePrice_Enter();
    void txtReciveAmout_Change();
    bool txtReciveAmout_Key(QKeyEvent* k);
    void cmdAdd_Click();
    void cmdCheckOut_Click();

    ReceiptData FirstPrintData() const;
    bool ReprintData(ReceiptData& d, bool small);

    std::unique_ptr<Ui::frmSell> ui_;
    QMenu* Main_ = nullptr;
    QAction* Cancel_ = nullptr;
    QObject* preview_ = nullptr;
};
