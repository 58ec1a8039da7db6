#pragma once
// Report tests: sale lines and after-sale rows written straight into the
// data file, and short looks at grids and boxes.
#include <QStringList>
#include <QTest>

#include "DateText.h"
#include "MsgRecorder.h"
#include "RowCompare.h"
#include "Session.h"
#include "TestDb.h"
#include "VSGrid.h"

struct SaleLine {
    QString typeNo = "X1", size = "M", colour = "黑色";
    double amount = 100, cost = 40;
    int state = 0;
    QString date = DateText::Today(), seller = "admin";
    double quantity = 1;
    QString place = "广州", shop = Session::ShopNo;
};

inline void AddSale(const SaleLine& l) {
    TestDb::Exec(QString("Insert Into Sell (GUID,ShopNo,TypeNo,Name,Brand,[Size],Colour,Leather,"
                         "Grade,ProductPlace,Quantity,Amount,BuyPrice,Seller,[DateTime],State) "
                         "Values('%1','%2','%3','T恤','青木','%4','%5','纯棉','一等品','%6',%7,%8,"
                         "%9,'%10','%11',%12)")
                     .arg(Session::NewGUID().GUID(), l.shop, l.typeNo, l.size, l.colour, l.place)
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
