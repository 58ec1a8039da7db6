// Price change: exact search, one row or the whole article number.
#include <QTest>

#include "MsgRecorder.h"
#include "Session.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "VSGrid.h"
#include "frmChangePrice.h"
#include "ui_frmChangePrice.h"

class TestChangePrice : public QObject {
    Q_OBJECT

    static QString price(const QString& guid) {
        return TestDb::Scalar("select Price from Store where GUID='" + guid + "'");
    }

private Q_SLOTS:
    void changeByRowOrByArticleNumber() {
        TestDb db;
        const QString m = TestDb::AddGoods("A1", 1, 99, 40, "M");
        const QString l = TestDb::AddGoods("A1", 1, 109, 40, "L");
        const QString other = TestDb::AddGoods("A10", 1, 50, 20);
        TestDb::Exec("Insert Into Store Values('{Q}','" + Session::ShopNo +
                     "','O''K','T恤','青木','M','黑色','纯棉','一等品','广州',1,10,'','')");
        MsgRecorder rec;
        frmChangePrice w;
        auto* u = w.ui();
        VSGrid* g = u->VSFlexGrid;
        QTest::keyClicks(u->txtNo, "A1");
        QCOMPARE(g->Rows(), 5);  // not on each key stroke; on Enter, the exact number
        QTest::keyClick(u->txtNo, Qt::Key_Return);
        QCOMPARE(g->Rows(), 3);

        g->setRow(g->Cell(1, "GUID") == l ? 1 : 2);
        const int row = g->Row();
        u->txtNewPrice->setText("八十");
        u->cmdNewPrice->click();
        QCOMPARE(rec.Pending().value(0).icon, MsgBox::Icon::Information);
        QCOMPARE(rec.TakeTexts(), QStringList({"请输入正确的数据类型"}));
        u->txtNewPrice->setText("89.5");
        u->cmdNewPrice->click();
        QCOMPARE(rec.TakeTexts(), QStringList({"变价成功"}));
        QCOMPARE(price(l) + "|" + price(m), QString("89.5|99"));
        QCOMPARE(g->Cell(row, "零售价") + "|" + g->Cell(3 - row, "零售价"), QString("89.5|99"));

        // The whole article, rows the list doesn't show included; the list follows.
        u->txtNo->setText("A10");
        QTest::keyClick(u->txtNo, Qt::Key_Return);
        TestDb::Exec("Update Store Set TypeNo='A10' Where GUID='" + m + "'");
        u->txtNewPrice->setText("66");
        u->cmdChangePriceBath->click();
        QCOMPARE(rec.TakeTexts(), QStringList({"变价成功"}));
        QCOMPARE(price(other) + "|" + price(m) + "|" + price(l), QString("66|66|89.5"));
        QCOMPARE(g->Cell(1, "零售价"), QString("66"));
        QCOMPARE(TestDb::Count("BuyPrice", "Price=40"), 2);  // costs stay

        // A quote in the number breaks the article's statement; by the row's key it works.
        u->txtNo->setText("O'K");
        QTest::keyClick(u->txtNo, Qt::Key_Return);
        QCOMPARE(g->Rows(), 2);
        u->txtNewPrice->setText("12");
        u->cmdChangePriceBath->click();
        QCOMPARE(rec.Pending().size(), 2);  // the engine's text, then success all the same
        QCOMPARE(rec.TakeTexts().value(1), QString("变价成功"));
        QCOMPARE(price("{Q}") + "|" + g->Cell(1, "零售价"), QString("10|12"));
        u->cmdNewPrice->click();
        QCOMPARE(rec.TakeTexts(), QStringList({"变价成功"}));
        QCOMPARE(price("{Q}"), QString("12"));
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestChangePrice)
#include "tst_changeprice.moc"
