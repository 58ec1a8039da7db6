// The statements the windows write, as the store receives them.
#include <QTest>

#include "JetSql.h"
#include "TestRegistry.h"

class TestJetSql : public QObject {
    Q_OBJECT
    static QString jet(const QString& s) {
        const auto r = JetSql::Translate(s);
        return r.error.isEmpty() ? r.sql : "ERROR: " + r.error;
    }
private Q_SLOTS:
    void dateLiterals() {
        QCOMPARE(
            jet("select * from Sell Where DateTime>=#2026-11-01# And DateTime<=#2026/11/2#"),
            QString("select * from Sell Where DateTime>='2026-11-01' And DateTime<='2026-11-02'"));
        QCOMPARE(jet("x Between #2026-1-5# And #2026-12-31#"),
                 QString("x Between '2026-01-05' And '2026-12-31'"));
    }
    void topBecomesLimit() {
        QCOMPARE(jet("Select top 1 ID,Price,Quantity from BuyPrice Where StoreGUID='a' And "
                     "Quantity>0 Order by sDate ASC"),
                 QString("Select ID,Price,Quantity from BuyPrice Where StoreGUID='a' And "
                         "Quantity>0 Order by sDate ASC LIMIT 1"));
        QCOMPARE(jet("select TOP 142 a from t "), QString("select a from t LIMIT 142"));
        // A column called top is not touched.
        QCOMPARE(jet("select top from t"), QString("select top from t"));
    }
    void functionsAndBooleans() {
        QCOMPARE(jet("select SellNo from Sell where mid(SellNo,1,8)='20261122'"),
                 QString("select SellNo from Sell where substr(SellNo,1,8)='20261122'"));
        QCOMPARE(jet("Where IsBackFactory=true And x=False"),
                 QString("Where IsBackFactory=-1 And x=0"));
        QCOMPARE(jet("select IsTrue, truest from t"), QString("select IsTrue, truest from t"));
    }
    void doubleMinusIsNoComment() {
        QCOMPARE(jet("Update Store Set Quantity=Quantity--2 Where GUID='a--b'"),
                 QString("Update Store Set Quantity=Quantity- -2 Where GUID='a--b'"));
    }
    void bracketedNames() {
        QCOMPARE(jet("Select * from [User] Where [No]='1'"),
                 QString("Select * from \"User\" Where \"No\"='1'"));
    }
    void literalsUntouched() {
        const QString s =
            "Insert Into T Values('#2026-1-1#','top 5 mid(true)','it''s [x]',"
            "'a;b')";
        QCOMPARE(jet(s), s);
        QCOMPARE(jet("where a='O''Neil' and b=true"), QString("where a='O''Neil' and b=-1"));
    }
    void chineseAliases() {
        const QString s = "Select TypeNo as 货号,Name as 种类 from Store Where Typeno Like'%ab%'";
        QCOMPARE(jet(s), s);
    }
    void twoStatementsRefused() {
        QVERIFY(jet("Delete from A; Delete from B").startsWith("ERROR"));
        QVERIFY(!jet("Delete from A;").startsWith("ERROR"));
        QVERIFY(jet("select 'unterminated").startsWith("ERROR"));
    }
};

CS_TEST(TestJetSql)
#include "tst_jetsql.moc"
