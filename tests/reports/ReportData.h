#pragma once
// Report tests: the report windows, sale lines and after-sale rows written
// straight into the data file, and short looks at grids and boxes.
#include <QStringList>
#include <QTest>

#include "DateText.h"
#include "Modal.h"
#include "MsgRecorder.h"
#include "RowCompare.h"
#include "Session.h"
#include "TestDb.h"
#include "VSGrid.h"
#include "frmAmountTotal.h"
#include "frmDayAmount.h"
#include "frmOtherOut.h"
#include "frmOtherOutQuery.h"
#include "frmPrint.h"
#include "frmProfit.h"
#include "frmSellGroup.h"
#include "frmSellQuery.h"
#include "frmStore.h"
#include "ui_frmAmountTotal.h"
#include "ui_frmDayAmount.h"
#include "ui_frmOtherOut.h"
#include "ui_frmOtherOutQuery.h"
#include "ui_frmPrint.h"
#include "ui_frmProfit.h"
#include "ui_frmSellGroup.h"
#include "ui_frmSellQuery.h"
#include "ui_frmStore.h"

// A sale line; the eight describing fields come first, in the grids' order.
struct SaleLine {
    QString typeNo = "X1", name = "T恤", brand = "青木", size = "M", colour = "黑色",
            leather = "纯棉", grade = "一等品", place = "广州";
    double amount = 100, cost = 40;
    int state = 0;
    QString date = DateText::Today(), seller = "admin";
    double quantity = 1;
    QString shop = Session::ShopNo;
};

inline void AddSale(const SaleLine& l) {
    TestDb::Exec(QString("Insert Into Sell (GUID,ShopNo,TypeNo,Name,Brand,[Size],Colour,Leather,"
                         "Grade,ProductPlace,Quantity,Amount,BuyPrice,Seller,[DateTime],State) "
                         "Values('%1','%2','%3','%4','%5','%6','%7','%8','%9','%10',%11,%12,%13,"
                         "'%14','%15',%16)")
                     .arg(Session::NewGUID().GUID(), l.shop, l.typeNo, l.name, l.brand, l.size,
                          l.colour, l.leather, l.grade, l.place)
                     .arg(l.quantity)
                     .arg(l.amount)
                     .arg(l.cost)
                     .arg(l.seller, l.date)
                     .arg(l.state));
}

// A return (2), an exchange (1) or a void (3) done by a clerk on a day.
inline void AddChange(int state, double amount, double addAmount, const QString& seller = "admin",
                      const QString& day = DateText::Today()) {
    TestDb::Exec(QString("Insert Into SellChange (ShopNo,Quantity,Amount,AddAmount,Seller,"
                         "ChangeDate,State) Values('%1',1,%2,%3,'%4','%5',%6)")
                     .arg(Session::ShopNo)
                     .arg(amount)
                     .arg(addAmount)
                     .arg(seller, day)
                     .arg(state));
}

inline QString Day(int fromToday) {
    return DateText::Of(QDate::currentDate().addDays(fromToday));
}

// The texts of a grid row from a column on; of every row from a column on;
// of a column below the header.
inline QStringList RowTexts(const VSGrid* g, int row, int from = 0) {
    QStringList out;
    for (int c = from; c < g->Cols(); ++c) out << g->TextMatrix(row, c);
    return out;
}
inline QList<QStringList> GridRows(const VSGrid* g, int from = 0) {
    QList<QStringList> out;
    for (int r = 0; r < g->Rows(); ++r) out << RowTexts(g, r, from);
    return out;
}
inline QStringList Cells(const VSGrid* g, const QString& key) {
    QStringList out;
    for (int r = 1; r < g->Rows(); ++r) out << g->Cell(r, key);
    return out;
}

// The boxes shown since the last look: "I:" information, "E:" error, "-:" plain.
inline QStringList Said(MsgRecorder& rec) {
    QStringList out;
    for (const MsgBox::Box& b : rec.Take()) out << QChar("-IWEQ"[int(b.icon)]) + (":" + b.text);
    return out;
}

// Clicks a list's print button: the rows the print window got (from column
// 1), which must know of the total row.
inline QList<QStringList> Printed(QPushButton* print) {
    QList<QStringList> copy;
    Modal::Queue([&](QDialog* d) {
        auto* p = qobject_cast<frmPrint*>(d);
        QVERIFY(p && p->HasTotal && p->CanTotal);
        copy = GridRows(p->ui()->VSFlexGrid, 1);
        d->reject();
    });
    print->click();
    return copy;
}
