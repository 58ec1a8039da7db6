#pragma once
// Helpers of the after-sale tests: sold pieces made straight in the data
// file, windows shown as at the counter, short looks at boxes and data.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "DateText.h"
#include "MsgRecorder.h"
#include "RowCompare.h"
#include "Session.h"
#include "TestDb.h"
#include "VSGrid.h"

// The boxes shown since the last look: "I:" information, "E:" error, "Q:" question.
inline QStringList Said(MsgRecorder& rec) {
    QStringList out;
    for (const MsgBox::Box& b : rec.Take()) out << QChar("-IWEQ"[int(b.icon)]) + (":" + b.text);
    return out;
}

inline QString DaysAgo(int days) {
    return DateText::Of(QDate::currentDate().addDays(-days));
}

// One piece sold as checkout leaves it: a sale line costed from the goods
// row's newest layer, which loses the piece, as the shelf does. Returns its GUID.
inline QString SellPiece(const QString& store, const QString& sellNo, const QString& abate,
                         double amount, int daysAgo = 0, int state = 0) {
    Recordset layer = TestDb::Query("Select top 1 ID,Price from BuyPrice Where StoreGUID='" +
                                    store + "' Order by ID DESC");
    const QString guid = Session::NewGUID().GUID();
    TestDb::Exec("Insert Into Sell Select '" + guid +
                 "',GUID,ShopNo,TypeNo,Name,Brand,[Size],Colour,Leather,Grade,ProductPlace,1,"
                 "Price,'" +
                 abate + "'," + QString::number(amount) + "," + layer.Text("Price") + ",'admin','" +
                 DaysAgo(daysAgo) + "','" + sellNo + "'," + layer.Text("ID") + ",'管理员'," +
                 QString::number(state) + ",500,0 From Store Where GUID='" + store + "'");
    TestDb::Exec("Update BuyPrice Set Quantity=Quantity-1 Where ID=" + layer.Text("ID"));
    TestDb::Exec("Update Store Set Quantity=Quantity-1 Where GUID='" + store + "'");
    return guid;
}

// A newer cost layer of a goods row, with its pieces on the shelf.
inline void AddLayer(const QString& store, int price, int quantity) {
    TestDb::Exec("Insert Into BuyPrice (StoreGUID,Price,Quantity,sDate,ShopNo) Values('" + store +
                 "'," + QString::number(price) + "," + QString::number(quantity) + ",'" +
                 DateText::Today() + "','" + Session::ShopNo + "')");
    TestDb::Exec("Update Store Set Quantity=Quantity+" + QString::number(quantity) +
                 " Where GUID='" + store + "'");
}

// A problem-stock row as the return and problem goods windows leave it;
// with a date, already sent back on that day.
inline void AddBack(const QString& typeNo, const QString& quantity, const QString& cost,
                    const QString& backDate = QString()) {
    TestDb::Exec(
        "Insert Into BackStore ([GUID],ShopNo,TypeNo,Name,Brand,[Size],Colour,Leather,Grade,"
        "ProductPlace,Quantity,BuyPrice,BackResion,Seller,SellName,IsBackFactory,BackFactoryDate) "
        "Values('{G}','" +
        Session::ShopNo + "','" + typeNo + "','T恤','青木','M','黑色','纯棉','一等品','广州'," +
        quantity + "," + cost + ",'破损','admin','管理员'," +
        (backDate.isEmpty() ? "0,Null)" : "1,'" + backDate + "')"));
}

// Shows a window active, so that the focus moves as the clerk types.
inline void Open(QWidget& w) {
    w.show();
    QApplication::setActiveWindow(&w);
    (void)QTest::qWaitForWindowActive(&w);
}

inline QWidget* Focus() {
    return QApplication::focusWidget();
}
inline void Press(QWidget* w, Qt::Key key) {
    QTest::keyClick(w, key);
}

// Ticks the sale-number box and looks the number up, from the keyboard
// (the return and the exchange window search alike).
template <typename Ui>
void FindSale(Ui* ui, const QString& no) {
    if (!ui->chkNo->isChecked()) Press(ui->chkNo, Qt::Key_Space);
    ui->txtSellNo->setFocus();
    ui->txtSellNo->clear();
    QTest::keyClicks(ui->txtSellNo, no);
    Press(ui->txtSellNo, Qt::Key_Return);
}

inline int RowOf(const VSGrid* g, const QString& key, const QString& text) {
    for (int r = 1; r < g->Rows(); ++r)
        if (g->Cell(r, key) == text) return r;
    return 0;
}
