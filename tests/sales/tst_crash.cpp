// A till killed in the middle of a checkout (a crash, a power cut) leaves
// every sale whole or absent: never some of its lines, never stock taken
// without its sale lines.
#include <QCoreApplication>
#include <QProcess>
#include <QThread>
#include <cstdio>

#include "SaleWindow.h"
#include "Session.h"
#include "TestRegistry.h"

namespace {

// The till in a second process: checks out the same basket of `pieces`
// pieces again and again until it is killed, saying "begin" before each
// checkout and "end" after it.
int CheckoutTill(const QStringList& args) {
    if (args.size() < 2) return 2;
    clsDbopt::SetDataFilePath(args[0]);
    Session::Create();
    if (!Session::Dbopt().ConnectionToDB()) return 3;
    Recordset shop = Session::Dbopt().Excute("select * from Shop");
    Session::ShopNo = shop.Text("GUID");
    Session::ShopName = shop.Text("ShopName");
    Session::User().Initial("admin");
    Session::SellRole().Initial(kDefaultShop);
    Session::SellRole().IsPrint = false;
    MsgBox::SetPresenter([](const MsgBox::Box&) { return MsgBox::Answer::Yes; });
    SaleWindow s;
    std::printf("ready\n");
    std::fflush(stdout);
    for (;;) {
        s.Sell("K1", args[1], "全");
        s.ui->txtReciveAmout->setText("9999");
        std::printf("begin\n");
        std::fflush(stdout);
        s.ui->cmdCheckOut->click();
        std::printf("end\n");
        std::fflush(stdout);
    }
}

}  // namespace

CS_CHILD(checkout, CheckoutTill)

class TestCrash : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void killedCheckoutsLeaveWholeSales() {
        TestDb db;
        const int stock = 100000;
        const QString goods = TestDb::AddGoods("K1", 10, 10, 4, "M", "黑色", "", "2026-01-01");
        // Many small layers, so that checkouts run across layer ends.
        Session::Dbopt().BeginTrans();
        for (int i = 0; i < 2000; ++i)
            TestDb::Exec("Insert Into BuyPrice (StoreGUID,Price,Quantity,sDate,ShopNo) Values('" +
                         goods + "',5,25,'2026-02-01','" + Session::ShopNo + "')");
        Session::Dbopt().CommitTrans();
        TestDb::Exec("Update Store Set Quantity=" + QString::number(stock));
        const int layers = TestDb::Scalar("select sum(Quantity) from BuyPrice").toInt();

        int inCheckout = 0;
        const int kills = 16;
        for (int i = 0; i < kills; ++i) {
            const int pieces = i % 2 ? 90 : 20;
            QProcess till;
            till.start(QCoreApplication::applicationFilePath(),
                       {"--child", "checkout", db.Path(), QString::number(pieces)});
            QVERIFY(till.waitForStarted());
            QVERIFY(till.waitForReadyRead(20000));
            // Kill points spread over a few checkouts' time.
            QThread::msleep(unsigned(40 + (i * 37) % 400));
            till.kill();
            QVERIFY(till.waitForFinished(20000));
            const QStringList said =
                QString::fromLatin1(till.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
            QVERIFY(!said.isEmpty());
            if (said.last() == "begin") ++inCheckout;

            // Every sale has all its lines or none.
            for (Recordset rs = TestDb::Query(
                     "select SellNo,count(*) from Sell group by SellNo having count(*)<>" +
                     QString::number(pieces) +
                     " and SellNo not in (select SellNo from Sell "
                     "group by SellNo having count(*) in (20,90))");
                 !rs.Eof(); rs.MoveNext())
                QFAIL(qPrintable("partial sale " + rs.Text(0) + ": " + rs.Text(1) + " lines"));
            // Stock and layers lost exactly what the sale lines took.
            const int sold = TestDb::Count("Sell");
            QCOMPARE(TestDb::Scalar("select Quantity from Store").toInt(), stock - sold);
            QCOMPARE(TestDb::Scalar("select sum(Quantity) from BuyPrice").toInt(), layers - sold);
        }
        QCOMPARE(TestDb::Scalar("pragma integrity_check"), QString("ok"));
        // Most kills land inside a checkout.
        QVERIFY2(inCheckout >= kills / 4, qPrintable(QString::number(inCheckout)));
    }
};

CS_TEST(TestCrash)
#include "tst_crash.moc"
