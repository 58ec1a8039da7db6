// Problem goods: shelf pieces moved to the problem stock, one cost layer per
// piece, and the checks that guard the quantity.
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include "AfterSale.h"
#include "TestRegistry.h"
#include "frmQuestion.h"
#include "ui_frmQuestion.h"

namespace {
void FindGoods(frmQuestion& w, const QString& typeNo) {
    w.ui()->txtNo->setText(typeNo);
    Press(w.ui()->txtNo, Qt::Key_Return);
}
void Add(frmQuestion& w, const QString& quantity) {
    w.ui()->txtQuatity->setText(quantity);
    w.ui()->cmdAddQuestion->click();
}
}  // namespace

class TestQuestion : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // Three pieces from a layer of 2 at 50 and a newer one of 5 at 60, first
    // in, first out, from the keyboard: the layers drop to 0 and 4, and one
    // problem-stock row holds 3 pieces worth 160.
    void piecesOverTwoLayers() {
        TestDb db;
        const QString g = TestDb::AddGoods("Q1", 2, 150, 50, "M", "黑色", "", "2026-01-05");
        AddLayer(g, 60, 5);
        MsgRecorder rec;
        frmQuestion w;
        Open(w);
        Ui::frmQuestion* ui = w.ui();
        FindGoods(w, "Q1");
        QCOMPARE(Focus(), ui->VSFlexGrid);
        Press(ui->VSFlexGrid, Qt::Key_Return);
        QTest::keyClicks(ui->txtQuatity, "3");  // over the selected "1"
        Press(ui->txtQuatity, Qt::Key_Return);
        QCOMPARE(Focus(), ui->comResion);
        ui->comResion->setEditText("污渍");
        Press(ui->comResion->lineEdit(), Qt::Key_Return);
        Press(Focus(), Qt::Key_Return);
        QCOMPARE(QStringList({ui->VSQuestion->Cell(1, "数量"), ui->VSQuestion->Cell(1, "质量问题"),
                              ui->VSFlexGrid->Cell(1, "数量")}),
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
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // The checks in their order. The stock is the figure shown, lowered by
    // the rows collected; 1.5 pieces take 2 from stock and are written as
    // 1.5; every row gets the fault the box shows at confirmation.
    void checksAndCollectedRows() {
        TestDb db;
        TestDb::AddGoods("K1", 2, 100, 30);
        MsgRecorder rec;
        frmQuestion w;
        Open(w);
        Ui::frmQuestion* ui = w.ui();
        FindGoods(w, "NONE");
        QCOMPARE(ui->VSFlexGrid->Rows(), 1);
        QCOMPARE(Focus(), ui->txtNo);
        Add(w, "1");
        FindGoods(w, "K1");
        const QString shortText = "I:库存不足不能转化成问题歇，请通知管理员！";
        for (const char* q : {"x", "0", "3"}) Add(w, q);
        QCOMPARE(Said(rec), QStringList({"I:请选择一个商品！", "I:数量的数据类型不正确！",
                                         "I:数量的不能小于0！", shortText}));
        ui->comResion->setEditText("A");
        Add(w, "1.5");
        QCOMPARE(ui->VSFlexGrid->Cell(1, "数量"), QString("0.5"));
        ui->txtQuatity->setText("1");
        Press(ui->txtQuatity, Qt::Key_Return);
        QCOMPARE(Said(rec), QStringList{shortText});
        Add(w, "0.5");
        ui->comResion->setEditText("B");
        ui->cmdOk->click();
        QCOMPARE(Said(rec), QStringList{"I:处理成功！"});
        COMPARE_ROWS(Rows("Select Quantity,BuyPrice,BackResion from BackStore"),
                     {"1.5|60|B", "0.5|0|B"});
        COMPARE_ROWS(Rows("Select Quantity from Store"), {"0"});
        COMPARE_ROWS(Rows("Select Quantity from BuyPrice"), {"0"});
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestQuestion)
#include "tst_question.moc"
