// The session's objects: the user with the rights of the role, and the rules.
#include <QTest>

#include "MsgRecorder.h"
#include "RuntimeError.h"
#include "Session.h"
#include "TestDb.h"
#include "TestRegistry.h"

class TestSession : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void userLoadsWithRole() {
        TestDb t(false);
        clsUser& u = Session::User();
        QVERIFY(u.Initial("admin"));
        QCOMPARE(u.No, QString("admin"));
        QCOMPARE(u.PassWord, QString("admin"));
        QVERIFY(u.Role && u.Role->ReStart && u.Role->AllList && u.Role->OtherOurQuery);
        QCOMPARE(u.Role->GUID, kAdminRole);
        QVERIFY(!u.LoginTime.isEmpty());
        // Text compares without regard to case, the number kept as typed.
        QVERIFY(u.Initial("ADMIN"));
        QCOMPARE(u.No, QString("ADMIN"));
    }

    void unknownUserKeepsTheFormerOne() {
        TestDb t(false);
        clsUser& u = Session::User();
        QVERIFY(u.Initial("admin"));
        QVERIFY(!u.Initial("nobody"));
        QCOMPARE(u.No, QString("admin"));
        // A quote in the number breaks the statement: engine text, then the common message.
        MsgRecorder rec;
        QVERIFY(!u.Initial("a'b"));
        const auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 2);
        QCOMPARE(boxes[1].text, MsgBox::ReadFailText());
        QCOMPARE(boxes[1].icon, MsgBox::Icon::Exclamation);
        QCOMPARE(boxes[1].title, QString("提示"));
    }

    void roleWithoutRowKeepsFormerRights() {
        TestDb t(false);
        TestDb::Exec("Insert Into [User] Values('{U2}','7','小王','1','{GONE}','收银员')");
        clsUser& u = Session::User();
        QVERIFY(u.Initial("admin"));
        QVERIFY(u.Initial("7"));
        QVERIFY(u.Role->ReStart);  // the administrator's rights stay
        TestDb::Exec("Insert Into Role (GUID,Name,Sell,StoreQuery) Values('{R}','收银员',1,1)");
        TestDb::Exec("Update [User] Set RoleGUID='{R}' Where [No]='7'");
        QVERIFY(u.Initial("7"));
        QVERIFY(u.Role->Sell && u.Role->StoreQuery);
        QVERIFY(!u.Role->ReStart);  // a null right is no right
    }

    void rulesLoadByName() {
        TestDb t(false);
        TestDb::Exec(
            "Update SellRole Set SellOrder=1,BackDays=7,AbateCannotBack=1,IsPrint=1,"
            "PrinterType=0,ChangNotToBack=1");
        clsSellRole& r = Session::SellRole();
        r.Initial(kDefaultShop);
        QCOMPARE(r.ShopNo, kDefaultShop);
        QCOMPARE(r.SellOrder, 1);
        QCOMPARE(r.BackDays, int16_t(7));
        QVERIFY(r.AbateCanNotBack && r.IsPrint && r.ChangNotToBack);
        QVERIFY(!r.SpecialCanNotBack);
        QCOMPARE(r.PrinterType, int16_t(0));
        // A shop without a rule row leaves everything as it was, silently.
        MsgRecorder rec;
        r.Initial("{NO-SUCH-SHOP}");
        QCOMPARE(r.BackDays, int16_t(7));
        CS_NO_LEFTOVER_BOXES(rec);
        // A null day count reads as 0.
        TestDb::Exec("Update SellRole Set BackDays=Null");
        r.Initial(kDefaultShop);
        QCOMPARE(r.BackDays, int16_t(0));
        // A day count beyond 16 bits fails the load.
        TestDb::Exec("Update SellRole Set ChangeDays=40000");
        QVERIFY_THROWS_EXCEPTION(RuntimeError, r.Initial(kDefaultShop));
    }
};

CS_TEST(TestSession)
#include "tst_session.moc"
