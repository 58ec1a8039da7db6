// The data file and the data access object.
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "Guard.h"
#include "MsgRecorder.h"
#include "RuntimeError.h"
#include "Session.h"
#include "TestDb.h"
#include "TestRegistry.h"

class TestDbopt : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void missingOrForeignFileIsNotOpenedNorMade() {
        QTemporaryDir dir;
        const QString path = dir.filePath("ClothesSell.mdb");
        clsDbopt::SetDataFilePath(path);
        {
            clsDbopt db;
            QVERIFY(!db.ConnectionToDB());
        }
        QVERIFY(!QFile::exists(path));
        QFile f(path);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write("this is not a data file at all, just some text to fill a page");
        f.close();
        {
            clsDbopt db;
            QVERIFY(!db.ConnectionToDB());
        }
        clsDbopt::SetDataFilePath(QString());
    }

    void tablesAndColumnsInOrder() {
        TestDb t;
        const QStringList sell = {"GUID",         "StoreGUID", "ShopNo",   "TypeNo",  "Name",
                                  "Brand",        "Size",      "Colour",   "Leather", "Grade",
                                  "ProductPlace", "Quantity",  "Price",    "Abate",   "Amount",
                                  "BuyPrice",     "Seller",    "DateTime", "SellNo",  "BuyPriceID",
                                  "SellerName",   "State",     "Money1",   "Money2"};
        QCOMPARE(TestDb::Query("select * from Sell").Names(), sell);
        QCOMPARE(TestDb::Query("select * from SellChange").FieldCount(), 26);
        QCOMPARE(TestDb::Query("select * from Store").FieldCount(), 14);
        QCOMPARE(TestDb::Query("select * from StoreDetail").FieldName(13), QString("Memo"));
        QCOMPARE(TestDb::Query("select * from Role").FieldCount(), 28);
        QCOMPARE(TestDb::Query("select * from DayAmount").FieldCount(), 12);
        QCOMPARE(TestDb::Query("select * from OtherOut").FieldCount(), 8);
        QCOMPARE(TestDb::Query("select * from [User]").FieldCount(), 6);
    }

    void seedRows() {
        TestDb t;
        QCOMPARE(TestDb::Scalar("select GUID from Shop"), kDefaultShop);
        QCOMPARE(TestDb::Count("SellRole", "ShopNo='" + kDefaultShop + "'"), 1);
        QCOMPARE(TestDb::Count("[User]", "RoleGUID='" + kAdminRole + "'"), 1);
        QCOMPARE(TestDb::Count("FileSave"), 1);
        QCOMPARE(TestDb::Scalar("select isSave from FileSave"), QString("0"));
        QVERIFY(!TestDb::Scalar("select dirpath from FileSave").contains(':'));
        for (const char* item : {"颜色", "尺码", "种类", "品牌", "面料", "等级", "产地", "退货原因",
                                 "调换原因", "作废原因", "其他支出项目", "折扣"})
            QVERIFY2(TestDb::Count("DataDictionary", QString("Item='%1'").arg(item)) > 0, item);
        // Every right of the administrator reads back as yes.
        Recordset admin = TestDb::Query("select * from Role where GUID='" + kAdminRole + "'");
        for (int i = 2; i < admin.FieldCount(); ++i) QCOMPARE(admin.Text(i), QString("-1"));
    }

    void failedStatementShowsEngineTextAndClosedResult() {
        TestDb t;
        MsgRecorder rec;
        bool isErr = false;
        Recordset rs = Session::Dbopt().Excute("select * from NoSuchTable", isErr);
        QVERIFY(isErr);
        QVERIFY(!rs.IsOpen());
        const auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 1);
        QVERIFY(boxes[0].text.contains("NoSuchTable"));
        QCOMPARE(boxes[0].icon, MsgBox::Icon::None);
        QCOMPARE(boxes[0].title, MsgBox::AppTitle());
        QVERIFY_THROWS_EXCEPTION(RuntimeError, rs.Eof());
        // The next statement clears the flag; writes give a closed result.
        Recordset w = Session::Dbopt().Excute("delete from Sell", isErr);
        QVERIFY(!isErr);
        QVERIFY(!w.IsOpen());
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void twoStatementsInOneTextAreOneError() {
        TestDb t;
        MsgRecorder rec;
        TestDb::Exec("Insert Into Role (GUID,Name) Values ('{R}','收银员')");
        bool isErr = false;
        Session::Dbopt().Excute(
            "Delete  from Role Where GUID='{R}'\r\nDelete from 用户表 where "
            "RoleGUID='{R}'",
            isErr);
        QVERIFY(isErr);
        QCOMPARE(rec.Take().size(), 1);
        QCOMPARE(TestDb::Count("Role", "GUID='{R}'"), 1);
        Session::Dbopt().Excute("Delete from Role Where GUID='{R}'; Delete from Shop", isErr);
        QVERIFY(isErr);
        QCOMPARE(rec.Take().size(), 1);
        QCOMPARE(TestDb::Count("Shop"), 1);
    }

    void recordsetReading() {
        TestDb t;
        TestDb::AddGoods("A1", 3, 100, 50);
        TestDb::AddGoods("A2", 4, 80, 40);
        Recordset rs = TestDb::Query(
            "select s.TypeNo as 货号, s.Quantity as Quantity, Memo from Store s "
            "left join StoreDetail d on d.ParentGUID=s.GUID order by s.TypeNo");
        QCOMPARE(rs.RecordCount(), 2);
        QVERIFY(!rs.Bof());
        QCOMPARE(rs.Text("货号"), QString("A1"));
        QCOMPARE(rs.Text("QUANTITY"), QString("3"));
        QCOMPARE(rs.FieldIndex("quantity"), 1);
        QVERIFY(!rs.IsNull("Memo"));
        rs.MoveNext();
        QCOMPARE(rs.Text(0), QString("A2"));
        rs.MoveNext();
        QVERIFY(rs.Eof());
        QVERIFY_THROWS_EXCEPTION(RuntimeError, rs.Field(0));
        QVERIFY_THROWS_EXCEPTION(RuntimeError, rs.MoveNext());
        rs.MoveFirst();
        QVERIFY_THROWS_EXCEPTION(RuntimeError, rs.Field("NoSuchField"));
        Recordset empty = TestDb::Query("select * from Sell");
        QVERIFY(empty.Eof() && empty.Bof());
    }

    void columnTypes() {
        TestDb t;
        // A quoted figure in a number column is stored as a number.
        TestDb::Exec(
            "Insert Into BuyPrice (StoreGUID,Price,Quantity,sDate,ShopNo) "
            "Values('g','5','2.5','2026-11-22','s')");
        QCOMPARE(TestDb::Scalar("select typeof(Price) from BuyPrice"), QString("integer"));
        QCOMPARE(TestDb::Scalar("select Price+1 from BuyPrice"), QString("6"));
        QCOMPARE(TestDb::Scalar("select Quantity from BuyPrice where sDate=#2026/11/22#"),
                 QString("2.5"));
        // Yes/no columns read back as -1 and 0 whatever was written, and true works as a test.
        TestDb::Exec(
            "Insert Into BackStore ([GUID],ShopNo,Quantity,IsBackFactory,BackFactoryDate) "
            "Values('g','s',1,1,Null)");
        TestDb::Exec(
            "Insert Into BackStore ([GUID],ShopNo,Quantity,IsBackFactory,BackFactoryDate) "
            "Values('h','s',1,0,Null)");
        QCOMPARE(TestDb::Scalar("select IsBackFactory from BackStore where GUID='g'"),
                 QString("-1"));
        QCOMPARE(TestDb::Count("BackStore", "IsBackFactory=true"), 1);
        QCOMPARE(TestDb::Count("BackStore", "IsBackFactory=0"), 1);
        TestDb::Exec("Update FileSave set IsSave=1");
        QCOMPARE(TestDb::Scalar("select isSave from FileSave"), QString("-1"));
    }

    void layerNumbersKeepCountingAfterWipe() {
        TestDb t;
        TestDb::AddGoods("A1", 1, 10, 5);
        const int first = TestDb::Scalar("select max(ID) from BuyPrice").toInt();
        TestDb::Exec("delete from BuyPrice");
        TestDb::AddGoods("A2", 1, 10, 5);
        QCOMPARE(TestDb::Scalar("select max(ID) from BuyPrice").toInt(), first + 1);
    }

    void transactions() {
        TestDb t;
        clsDbopt& db = Session::Dbopt();
        db.BeginTrans();
        TestDb::Exec("Insert Into Shop Values('{X}','分店')");
        db.RollbackTrans();
        QCOMPARE(TestDb::Count("Shop"), 1);
        db.BeginTrans();
        TestDb::Exec("Insert Into Shop Values('{X}','分店')");
        db.CommitTrans();
        QCOMPARE(TestDb::Count("Shop"), 2);
        QVERIFY_THROWS_EXCEPTION(RuntimeError, db.CommitTrans());
    }

    // The statements of one guarded handler share one transaction, begun at
    // its first write and committed when the handler that began it ends,
    // whatever happened inside.
    void userActions() {
        TestDb t;
        clsDbopt& db = Session::Dbopt();
        auto old = MsgBox::SetPresenter([](const MsgBox::Box&) { return MsgBox::Answer::Ok; });
        bool beforeWrite = true, afterWrite = false, innerSees = false;
        Guard::Run([&] {
            db.Excute("Select * from Shop");
            beforeWrite = db.InTransaction();
            db.Excute("Insert Into Shop Values('{A}','一店')");
            afterWrite = db.InTransaction();
            // A failing statement stands alone; the others stay.
            db.Excute("Insert Into NoSuchTable Values(1)");
            // A window opened from the handler: its handler joins the action.
            Guard::Run([&] { db.Excute("Insert Into Shop Values('{B}','二店')"); });
            innerSees = db.InTransaction();
        });
        QVERIFY(!beforeWrite);
        QVERIFY(afterWrite);
        QVERIFY(innerSees);
        QVERIFY(!db.InTransaction());
        QCOMPARE(TestDb::Count("Shop"), 3);

        // A box that waits for the user (not the one of a failed statement)
        // commits what was written; later writes begin anew.
        bool openAtBox = true, openAfter = false;
        Guard::Run([&] {
            db.Excute("Insert Into Shop Values('{F}','六店')");
            MsgBox::Info(QStringLiteral("保存成功！"));
            openAtBox = db.InTransaction();
            db.Excute("Insert Into Shop Values('{G}','七店')");
            openAfter = db.InTransaction();
        });
        QVERIFY(!openAtBox);
        QVERIFY(openAfter);
        QCOMPARE(TestDb::Count("Shop"), 5);

        // A run-time error ends the handler; what it wrote is committed.
        Guard::Run([&] {
            db.Excute("Insert Into Shop Values('{C}','三店')");
            throw RuntimeError(RuntimeError::overflow());
        });
        QVERIFY(!db.InTransaction());
        QCOMPARE(TestDb::Count("Shop"), 6);

        // The caller's own transaction left open by an error is undone.
        Guard::Run([&] {
            db.Excute("Insert Into Shop Values('{D}','四店')");
            db.BeginTrans();
            db.Excute("Insert Into Shop Values('{E}','五店')");
            throw RuntimeError(RuntimeError::overflow());
        });
        QVERIFY(!db.InTransaction());
        QCOMPARE(TestDb::Scalar("select count(*) from Shop where GUID in ('{D}','{E}')"), "1");
        MsgBox::SetPresenter(old);
    }

    void guids() {
        clsNewGUID g;
        const QString a = g.GUID(false);
        QCOMPARE(a.size(), 38);
        QVERIFY(QRegularExpression(
                    "^\\{[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}\\}$")
                    .match(a)
                    .hasMatch());
        const QString b = g.GUID(true);
        QVERIFY(QRegularExpression("^[0-9A-F]{32}$").match(b).hasMatch());
        QVERIFY(a != g.GUID(false));
    }
};

CS_TEST(TestDbopt)
#include "tst_dbopt.moc"
