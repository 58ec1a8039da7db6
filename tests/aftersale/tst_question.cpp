// Problem goods: shelf pieces moved to the problem stock, one cost layer per
// piece, and the checks that guard the quantity.
#include "AfterSale.h"
#include "TestRegistry.h"
#include "frmQuestion.h"
#include "ui_frmQuestion.h"

class TestQuestion : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // The checks in their order; the stock is the figure shown, lowered by
    // the rows collected. Three pieces from a layer of 2 at 50 and a newer
    // one of 5 at 60, first in, first out, from the keyboard: the layers drop
    // to 0 and 4, one problem-stock row holds 3 pieces worth 160. Then 1.5
    // pieces take 2 from stock and 0.5 none, written as typed; every row gets
    // the fault the box shows at confirmation.
    void piecesOverLayersAndChecks() {
        TestDb db;
        const QString g = TestDb::AddGoods("Q1", 2, 150, 50, "M", "黑色", "", "2026-01-05");
        AddLayer(g, 60, 5);
        MsgRecorder rec;
        frmQuestion w;
        Open(w);
        Ui::frmQuestion* ui = w.ui();
        VSGrid* goods = ui->VSFlexGrid;
        auto find = [&](const QString& typeNo) {
            ui->txtNo->setText(typeNo);
            Press(ui->txtNo, Qt::Key_Return);
        };
        auto add = [&](const QString& quantity) {
            ui->txtQuatity->setText(quantity);
            ui->cmdAddQuestion->click();
        };
        find("NONE");
        QCOMPARE(Focus(), ui->txtNo);
        add("1");
        find("Q1");
        QCOMPARE(Focus(), goods);
        const QString shortText = "I:库存不足不能转化成问题歇，请通知管理员！";
        for (const char* q : {"x", "0", "8"}) add(q);
        QCOMPARE(Said(rec), QStringList({"I:请选择一个商品！", "I:数量的数据类型不正确！",
                                         "I:数量的不能小于0！", shortText}));
        goods->setFocus();
        Press(goods, Qt::Key_Return);
        QTest::keyClicks(ui->txtQuatity, "3");  // over the selected "8"
        Press(ui->txtQuatity, Qt::Key_Return);
        QCOMPARE(Focus(), ui->comResion);
        ui->comResion->setEditText("污渍");
        Press(ui->comResion->lineEdit(), Qt::Key_Return);
        Press(Focus(), Qt::Key_Return);
        QCOMPARE(QStringList({ui->VSQuestion->Cell(1, "数量"), ui->VSQuestion->Cell(1, "质量问题"),
                              goods->Cell(1, "数量")}),
                 Values("3|污渍|4"));
        ui->cmdOk->click();
        QCOMPARE(Said(rec), QStringList{"I:处理成功！"});
        QCOMPARE(ui->VSQuestion->Rows(), 1);
        COMPARE_ROWS(Rows("Select Quantity from BuyPrice Order By sDate"), {"0", "4"});
        COMPARE_ROWS(Rows("Select Quantity from Store"), {"4"});
        const clsUser& user = Session::User();
        COMPARE_ROWS(
            Rows("Select * from BackStore"),
            {QStringList({"1", g, Session::ShopNo, "Q1|T恤|青木|M|黑色|纯棉|一等品|广州|3|160|污渍",
                          user.No, user.Name, "0|"})
                 .join('|')});

        ui->comResion->setEditText("A");
        add("1.5");
        QCOMPARE(goods->Cell(1, "数量"), QString("2.5"));
        ui->txtQuatity->setText("3");
        Press(ui->txtQuatity, Qt::Key_Return);
        QCOMPARE(Said(rec), QStringList{shortText});
        add("0.5");
        ui->comResion->setEditText("B");
        ui->cmdOk->click();
        QCOMPARE(Said(rec), QStringList{"I:处理成功！"});
        COMPARE_ROWS(Rows("Select Quantity,BuyPrice,BackResion from BackStore Where ID>1"),
                     {"1.5|120|B", "0.5|0|B"});
        COMPARE_ROWS(Rows("Select Quantity from Store"), {"2"});
        COMPARE_ROWS(Rows("Select Quantity from BuyPrice Order By sDate"), {"0", "2"});
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestQuestion)
#include "tst_question.moc"
