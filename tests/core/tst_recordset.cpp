// Results as the store gives them: every kind of value read back exactly,
// whichever way it is read, and results made one after another each keeping
// their own values.
#include <QTest>

#include "Convert.h"
#include "RuntimeError.h"
#include "TestDb.h"
#include "TestRegistry.h"

namespace {

// n rows counting up from base+1: the number, a text of it and its half.
Recordset counting(int n, int base) {
    return TestDb::Query(QString("with recursive k(i) as (select 1 union all select i+1 from k "
                                 "where i<%1) select i+%2 as n, 'r'||(i+%2) as t, (i+%2)*0.5 as h "
                                 "from k")
                             .arg(n)
                             .arg(base));
}

// Whether a result still holds what counting(n, base) gave (every 13th row
// and the last).
bool holdsCounting(Recordset rs, int n, int base) {
    if (rs.RecordCount() != n) return false;
    for (int r = 0; r < n; ++r, rs.MoveNext()) {
        if (r % 13 != 0 && r != n - 1) continue;
        const qlonglong v = r + 1 + base;
        if (rs.Field(0).toLongLong() != v || rs.Text(1) != "r" + QString::number(v) ||
            rs.Field("h").toDouble() != double(v) * 0.5)
            return false;
    }
    return true;
}

// Each field of the current row as "kind|text|null".
QStringList described(const Recordset& rs, const QStringList& fields) {
    QStringList out;
    for (const QString& f : fields)
        out << QString("%1|%2|%3")
                   .arg(QMetaType(rs.Field(f).typeId()).name(), rs.Text(f))
                   .arg(rs.IsNull(f));
    return out;
}

}  // namespace

class TestRecordset : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void valuesReadBackAsStored() {
        TestDb t;
        Recordset rs = TestDb::Query(
            "select null as n, 42 as i, -9007199254740993 as big, 2.5 as d, 0.1+0.2 as s, "
            "'' as e, '红色 XL' as t, cast('ab' as blob) as b");
        // Past 2^53: an integer kept as a double would lose the last digit.
        QCOMPARE(described(rs, {"n", "i", "big", "d", "e", "t"}),
                 QStringList({"||1", "qlonglong|42|0", "qlonglong|-9007199254740993|0",
                              "double|2.5|0", "QString||0", "QString|红色 XL|0"}));
        QCOMPARE(rs.Field("big").toLongLong(), -9007199254740993LL);
        QCOMPARE(rs.Field("s").toDouble(), 0.1 + 0.2);
        QCOMPARE(rs.Text("s"), QString("0.3"));
        QCOMPARE(rs.Field("b"), QVariant(QByteArray("ab")));
        QVERIFY_THROWS_EXCEPTION(RuntimeError, rs.Field(8));
        QVERIFY_THROWS_EXCEPTION(RuntimeError, rs.IsNull(-1));

        // The store keeps a kind per value, not per column; all rows at once
        // give the same variants.
        Recordset mixed = TestDb::Query(
            "select 1 as v union all select 'x' union all select null union all select 1.5");
        QStringList rows;
        for (; !mixed.Eof(); mixed.MoveNext()) rows << described(mixed, {"V"});
        QCOMPARE(rows, QStringList({"qlonglong|1|0", "QString|x|0", "||1", "double|1.5|0"}));
        mixed.MoveFirst();
        QCOMPARE(mixed.Rows().size(), size_t(4));
        for (const Recordset::Row& row : mixed.Rows()) {
            QCOMPARE(row, Recordset::Row({mixed.Field(0)}));
            mixed.MoveNext();
        }
    }

    void givenRowsKeepTheirVariants() {
        const QDate day(2026, 11, 22);
        Recordset rs({"a", "b", "c"}, {{7, true, 1.1f}, {day, QVariant()}});
        QCOMPARE(rs.RecordCount(), 2);
        QCOMPARE(rs.Field(0).typeId(), QMetaType::Int);
        QCOMPARE(QStringList({rs.Text(1), rs.Text(2)}),
                 QStringList({"-1", Convert::FloatText(1.1f)}));
        rs.MoveNext();
        QCOMPARE(rs.Field("A"), QVariant(day));
        QVERIFY(!rs.IsNull(0) && rs.IsNull(1));
        // The shorter row has no third field.
        QVERIFY_THROWS_EXCEPTION(RuntimeError, rs.Field(2));
        QCOMPARE(rs.Rows()[1].size(), 2);
    }

    // Large results hand their memory on to the ones after them: nothing of
    // one may show in another.
    void successiveResultsKeepTheirOwnValues() {
        TestDb t;
        Recordset a = counting(50000, 0);
        Recordset b = counting(50000, 1000000);
        a = Recordset();
        Recordset small = counting(10, 500);
        Recordset c = counting(60000, 2000000);
        QVERIFY(holdsCounting(b, 50000, 1000000) && holdsCounting(c, 60000, 2000000));
        b = Recordset();
        c = Recordset();
        Recordset d = counting(70000, 3000000);
        Recordset e = counting(20, 4000000);
        QVERIFY(holdsCounting(d, 70000, 3000000) && holdsCounting(e, 20, 4000000));
        QVERIFY(holdsCounting(small, 10, 500));
    }
};

CS_TEST(TestRecordset)
#include "tst_recordset.moc"
