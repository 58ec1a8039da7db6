// Factory return: ticks and their sum, the checks of the batch in their
// order, one record per batch; and the list of what went back, by date.
#include "AfterSale.h"
#include "TestRegistry.h"
#include "frmBackFactoryQuery.h"
#include "frmFactoryBack.h"
#include "ui_frmBackFactoryQuery.h"
#include "ui_frmFactoryBack.h"

class TestFactoryBack : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // Space ticks a row wherever the current cell stands; other cells can't
    // be edited; every tick proposes the sum anew over what was typed. The
    // amount is checked before the selection, 0 passes; the batch writes one
    // record on the chosen date, and marks and removes the ticked rows. The
    // list then shows what went back between two dates, both included, with
    // a whole-number total after each article; today's at opening.
    void ticksBatchAndList() {
        TestDb db;
        AddBack("A", "1", "30");
        AddBack("B", "1", "45.5");
        AddBack("C", "3", "160");
        AddBack("OLD", "1", "10", DaysAgo(9));
        AddBack("OLD", "2", "45", DaysAgo(9));
        AddBack("Z", "1", "20", DaysAgo(0));
        MsgRecorder rec;
        frmFactoryBack w;
        Open(w);
        Ui::frmFactoryBack* ui = w.ui();
        VSGrid* g = ui->VSFlexGrid;
        QCOMPARE(g->Rows() - 1, 3);
        ui->cmdRegist->click();
        QCOMPARE(Said(rec), QStringList{"I:请输入正确的退货金额！"});
        QCOMPARE(Focus(), ui->txtAmount);
        for (const char* typed : {"-1", "0"}) {
            ui->txtAmount->setText(typed);
            ui->cmdRegist->click();
        }
        QCOMPARE(Said(rec), QStringList({"I:请输入大于0的数字！", "I:请选择要退的商品！"}));

        g->setFocus();
        for (const auto& [typeNo, sum] : {std::pair{"A", "30"}, {"B", "75.5"}, {"A", "45.5"}}) {
            g->setRow(RowOf(g, "货号", typeNo));
            Press(g, Qt::Key_Space);
            QCOMPARE(ui->txtAmount->text(), QString(sum));
        }
        g->setRow(RowOf(g, "货号", "A"));
        g->setCol(g->ColIndex("进价"));
        QTest::keyClicks(g, "99");
        QCOMPARE(g->Text("进价"), QString("30"));
        ui->txtAmount->setText("999");
        QVERIFY(g->model()->setData(g->model()->index(RowOf(g, "货号", "C") - 1, 11), Qt::Checked,
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
                          "TypeNo<'D' Order By TypeNo"),
                     {"A|0|", "B|-1|" + DaysAgo(1), "C|-1|" + DaysAgo(1)});
        QCOMPARE(g->Rows() - 1, 1);
        ui->cmdAll->click();
        QCOMPARE(ui->txtAmount->text(), QString("30"));

        frmBackFactoryQuery q;
        VSGrid* list = q.ui()->VSFlexGrid;
        auto listed = [list] {
            QList<QStringList> out;
            for (int r = 1; r < list->Rows(); ++r)
                out << QStringList({list->IsSubtotal(r) ? "合计" : list->Cell(r, "货号"),
                                    list->Cell(r, "数量"), list->Cell(r, "退货金额")});
            return out;
        };
        COMPARE_ROWS(listed(), {"Z|1|20", "合计|1|20"});
        q.ui()->DTBeginTime->setDate(QDate::currentDate().addDays(-9));
        q.ui()->DTEndTime->setDate(QDate::currentDate().addDays(-1));
        q.ui()->cmdQuery->click();
        COMPARE_ROWS(listed(), {"B|1|45.5", "合计|1|46", "C|3|160", "合计|3|160", "OLD|1|10",
                                "OLD|2|45", "合计|3|55"});
        QCOMPARE(list->Cell(1, "退货日期"), DaysAgo(1));
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestFactoryBack)
#include "tst_factoryback.moc"
