// Factory return: ticks and their sum, the checks of the batch in their
// order, one record per batch; and the list of what went back, by date.
#include <QDateEdit>
#include <QLineEdit>
#include <QPushButton>

#include "AfterSale.h"
#include "TestRegistry.h"
#include "frmBackFactoryQuery.h"
#include "frmFactoryBack.h"
#include "ui_frmBackFactoryQuery.h"
#include "ui_frmFactoryBack.h"

namespace {

// A problem-stock row as the return and problem goods windows leave it;
// with a date, already sent back on that day.
void AddBack(const QString& typeNo, const QString& quantity, const QString& cost,
             const QString& backDate = QString()) {
    TestDb::Exec(
        "Insert Into BackStore ([GUID],ShopNo,TypeNo,Name,Brand,[Size],Colour,Leather,Grade,"
        "ProductPlace,Quantity,BuyPrice,BackResion,Seller,SellName,IsBackFactory,BackFactoryDate) "
        "Values('{G}','" +
        Session::ShopNo + "','" + typeNo + "','T恤','青木','M','黑色','纯棉','一等品','广州'," +
        quantity + "," + cost + ",'破损','admin','管理员'," +
        (backDate.isEmpty() ? "0,Null)" : "1,'" + backDate + "')"));
}

}  // namespace

class TestFactoryBack : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // Space ticks a row wherever the current cell stands; other cells can't
    // be edited; every tick proposes the sum anew. The amount is checked
    // before the selection, 0 passes; the batch writes one record and marks
    // and removes the ticked rows.
    void ticksAndOneBatch() {
        TestDb db;
        AddBack("A", "1", "30");
        AddBack("B", "1", "45.5");
        AddBack("C", "3", "160");
        AddBack("OLD", "1", "10", DaysAgo(9));
        MsgRecorder rec;
        frmFactoryBack w;
        Open(w);
        Ui::frmFactoryBack* ui = w.ui();
        VSGrid* g = ui->VSFlexGrid;
        QCOMPARE(QStringList({g->TextMatrix(0, 12), g->TextMatrix(1, 12)}), Values("选中|0"));
        QCOMPARE(g->Rows(), 4);

        ui->cmdRegist->click();
        QCOMPARE(Said(rec), QStringList{"I:请输入正确的退货金额！"});
        QCOMPARE(Focus(), ui->txtAmount);
        for (const char* typed : {"-1", "0"}) {
            ui->txtAmount->setText(typed);
            ui->cmdRegist->click();
        }
        QCOMPARE(Said(rec), QStringList({"I:请输入大于0的数字！", "I:请选择要退的商品！"}));

        g->setFocus();
        for (const char* typeNo : {"A", "B", "A"}) {
            g->setRow(RowOf(g, "货号", typeNo));
            Press(g, Qt::Key_Space);
        }
        QCOMPARE(ui->txtAmount->text(), QString("45.5"));
        g->setRow(RowOf(g, "货号", "A"));
        g->setCol(g->ColIndex("进价"));
        QTest::keyClicks(g, "99");
        QCOMPARE(g->Text("进价"), QString("30"));
        QCOMPARE(g->Text("货号"), QString("A"));
        ui->txtAmount->setText("999");
        const int rowC = RowOf(g, "货号", "C");
        QVERIFY(g->model()->setData(g->model()->index(rowC - 1, 11), Qt::Checked,
                                    Qt::CheckStateRole));  // a click on the box
        QCOMPARE(ui->txtAmount->text(), QString("205.5"));

        ui->DT->setDate(QDate::currentDate().addDays(-1));
        ui->txtAmount->setText("0");
        ui->cmdRegist->click();
        QCOMPARE(Said(rec), QStringList{"I:退货成功！"});
        const clsUser& user = Session::User();
        COMPARE_ROWS(
            Rows("Select [DateTime],Seller,SellerNo,Quantity,Amount,ShopNo from "
                 "FactoryBackTotal"),
            {QStringList({DaysAgo(1), user.No, user.Name, "4|0", Session::ShopNo}).join('|')});
        COMPARE_ROWS(Rows("Select TypeNo,IsBackFactory,BackFactoryDate from BackStore Where "
                          "TypeNo<>'OLD' Order By TypeNo"),
                     {"A|0|", "B|-1|" + DaysAgo(1), "C|-1|" + DaysAgo(1)});
        QCOMPARE(g->Rows() - 1, 1);
        QCOMPARE(ui->txtAmount->text(), QString("0"));

        ui->cmdAll->click();
        QCOMPARE(ui->txtAmount->text(), QString("30"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // What went back between two dates, both included, with a total after
    // each article; today's at opening.
    void listByDateWithTotals() {
        TestDb db;
        AddBack("X", "1", "30", DaysAgo(1));
        AddBack("X", "2", "45", DaysAgo(1));
        AddBack("Y", "3", "160", DaysAgo(5));
        AddBack("Z", "1", "20", DaysAgo(0));
        AddBack("W", "1", "99");
        MsgRecorder rec;
        frmBackFactoryQuery w;
        VSGrid* g = w.ui()->VSFlexGrid;
        auto listed = [g] {
            QList<QStringList> out;
            for (int r = 1; r < g->Rows(); ++r)
                out << QStringList({g->IsSubtotal(r) ? "合计" : g->Cell(r, "货号"),
                                    g->Cell(r, "数量"), g->Cell(r, "退货金额")});
            return out;
        };
        COMPARE_ROWS(listed(), {"Z|1|20", "合计|1|20"});
        w.ui()->DTBeginTime->setDate(QDate::currentDate().addDays(-5));
        w.ui()->DTEndTime->setDate(QDate::currentDate().addDays(-1));
        w.ui()->cmdQuery->click();
        COMPARE_ROWS(listed(), {"X|1|30", "X|2|45", "合计|3|75", "Y|3|160", "合计|3|160"});
        QCOMPARE(g->Cell(1, "退货日期"), DaysAgo(1));
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestFactoryBack)
#include "tst_factoryback.moc"
