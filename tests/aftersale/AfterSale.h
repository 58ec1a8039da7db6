#pragma once
// Helpers of the after-sale tests: sold pieces made straight in the data
// file, windows shown as at the counter, and short looks at boxes and data.
#include <QApplication>
#include <QTest>

#include "DateText.h"
#include "MsgRecorder.h"
#include "Session.h"
#include "TestDb.h"
#include "VSGrid.h"

// The boxes shown since the last look, as kind and text: "I:" information,
// "W:" warning, "E:" error, "Q:" question.
inline QStringList Said(MsgRecorder& rec) {
    QStringList out;
    for (const MsgBox::Box& b : rec.Take()) out << QChar("-IWEQ"[int(b.icon)]) + (":" + b.text);
    return out;
}

// The fields of each row of a query, joined by "|", the rows by "/".
inline QString Rows(const QString& sql) {
    QStringList out;
    for (Recordset rs = TestDb::Query(sql); !rs.Eof(); rs.MoveNext()) {
        QStringList fields;
        for (int i = 0; i < rs.FieldCount(); ++i) fields << rs.Text(i);
        out << fields.join('|');
    }
    return out.join('/');
}

inline QString DaysAgo(int days) {
    return DateText::Of(QDate::currentDate().addDays(-days));
}

// One piece of a goods row sold as checkout leaves it: a sale line costed
// from the goods row's newest layer, which loses the piece, as the shelf
// does. Returns the line's GUID.
inline QString SellPiece(const QString& store, const QString& sellNo, const QString& abate,
                         double amount, int daysAgo = 0, int state = 0) {
    Recordset layer = TestDb::Query("Select top 1 ID,Price from BuyPrice Where StoreGUID='" +
                                    store + "' Order by ID DESC");
    const QString id = layer.Text("ID");
    const QString guid = Session::NewGUID().GUID();
    TestDb::Exec("Insert Into Sell Select '" + guid +
                 "',GUID,ShopNo,TypeNo,Name,Brand,[Size],Colour,Leather,Grade,ProductPlace,1,"
                 "Price,'" +
                 abate + "'," + QString::number(amount) + "," + layer.Text("Price") + ",'admin','" +
                 DaysAgo(daysAgo) + "','" + sellNo + "'," + id + ",'管理员'," +
                 QString::number(state) + ",500,0 From Store Where GUID='" + store + "'");
    TestDb::Exec("Update BuyPrice Set Quantity=Quantity-1 Where ID=" + id);
    TestDb::Exec("Update Store Set Quantity=Quantity-1 Where GUID='" + store + "'");
    return guid;
}

// Shows a window as the clerk sees it, active, so that focus moves as typed.
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

// The data row of a grid whose column holds the text; 0 when none does.
inline int RowOf(const VSGrid* g, const QString& key, const QString& text) {
    for (int r = 1; r < g->Rows(); ++r)
        if (g->Cell(r, key) == text) return r;
    return 0;
}
