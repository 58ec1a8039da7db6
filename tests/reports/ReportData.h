#pragma once
// Helpers of the report tests: sale lines and after-sale rows written
// straight into the data file, and short looks at grids and boxes.
#include <QStringList>
#include <QTest>

#include "DateText.h"
#include "MsgRecorder.h"
#include "Session.h"
#include "TestDb.h"
#include "VSGrid.h"

// One sale line with the columns the reports read; the rest stay empty.
struct SaleLine {
    QString typeNo = "X1";
    QString size = "M";
    QString colour = "黑色";
    double amount = 100;
    double cost = 40;
    int state = 0;
    QString date = DateText::Today();
    QString seller = "admin";
    double quantity = 1;
    QString brand = "青木";
    QString kind = "T恤";
    QString place = "广州";
    QString shop = Session::ShopNo;
};

inline QString AddSale(const SaleLine& l) {
    const QString guid = Session::NewGUID().GUID();
    TestDb::Exec(
        QString("Insert Into Sell (GUID,ShopNo,TypeNo,Name,Brand,[Size],Colour,Leather,"
                "Grade,ProductPlace,Quantity,Price,Abate,Amount,BuyPrice,Seller,[DateTime],"
                "SellNo,SellerName,State) Values('%1','%2','%3','%4','%5','%6','%7','纯棉',"
                "'一等品','%8',%9,%10,'全',%11,%12,'%13','%14','%15','%16',%17)")
            .arg(guid, l.shop, l.typeNo, l.kind, l.brand, l.size, l.colour, l.place)
            .arg(l.quantity)
            .arg(l.amount)
            .arg(l.amount)
            .arg(l.cost)
            .arg(l.seller, l.date, l.date.left(4) + "0001", l.seller + "名")
            .arg(l.state));
    return guid;
}

// A return (state 2), exchange (1) or void (3) done by a clerk on a day.
struct ChangeRow {
    int state = 2;
    double amount = 100;
    double addAmount = 100;
    QString changeDate = DateText::Today();
    QString seller = "admin";
    double quantity = 1;
    QString shop = Session::ShopNo;
};

inline void AddChange(const ChangeRow& c) {
    TestDb::Exec(QString("Insert Into SellChange (GUID,ShopNo,TypeNo,Quantity,Amount,Seller,"
                         "[DateTime],AddAmount,ChangeDate,State) Values('%1','%2','X1',%3,%4,'%5',"
                         "'2020-01-01',%6,'%7',%8)")
                     .arg(Session::NewGUID().GUID(), c.shop)
                     .arg(c.quantity)
                     .arg(c.amount)
                     .arg(c.seller)
                     .arg(c.addAmount)
                     .arg(c.changeDate)
                     .arg(c.state));
}

// A day some days from today, as the system writes it.
inline QString Day(int fromToday) {
    return DateText::Of(QDate::currentDate().addDays(fromToday));
}

// The cells of a column below the header; a column by key.
inline QStringList Cells(const VSGrid* g, int col) {
    QStringList out;
    for (int r = 1; r < g->Rows(); ++r) out << g->TextMatrix(r, col);
    return out;
}
inline QStringList Cells(const VSGrid* g, const QString& key) {
    return Cells(g, g->ColIndex(key));
}

// The first field of each row of a query, joined by "/".
inline QString Column(const QString& sql) {
    QStringList out;
    for (Recordset rs = TestDb::Query(sql); !rs.Eof(); rs.MoveNext()) out << rs.Text(0);
    return out.join('/');
}

// The boxes shown since the last look, as kind and text: "I:" information,
// "W:" warning, "E:" error, "Q:" question, "-:" plain.
inline QStringList Said(MsgRecorder& rec) {
    QStringList out;
    for (const MsgBox::Box& b : rec.Take()) out << QChar("-IWEQ"[int(b.icon)]) + (":" + b.text);
    return out;
}
