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
    static void search(frmChangePrice& w, const QString& no) {
        w.ui()->txtNo->setText(no);
        QTest::keyClick(w.ui()->txtNo, Qt::Key_Return);
    }

private Q_SLOTS:
    void exactSearchOnEnter() {
        TestDb db;
        TestDb::AddGoods("A1", 1, 99, 40);
        TestDb::AddGoods("A10", 1, 99, 40);
        frmChangePrice w;
        w.show();
        QApplication::setActiveWindow(&w);
        QVERIFY(QTest::qWaitForWindowActive(&w));
        VSGrid* g = w.ui()->VSFlexGrid;
        QCOMPARE(g->Rows(), 3);
        QTest::keyClicks(w.ui()->txtNo, "A1");
        QCOMPARE(g->Rows(), 3);  // not on each key stroke
        QTest::keyClick(w.ui()->txtNo, Qt::Key_Return);
        QCOMPARE(g->Rows(), 2);
        QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(g));
        QTest::keyClick(g, Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(w.ui()->txtNewPrice));
    }

    void changeOneRowOrTheArticle() {
        TestDb db;
        const QString m = TestDb::AddGoods("A1", 1, 99, 40, "M");
        const QString l = TestDb::AddGoods("A1", 1, 109, 40, "L");
        const QString other = TestDb::AddGoods("B2", 1, 50, 20);
        MsgRecorder rec;
        frmChangePrice w;
        VSGrid* g = w.ui()->VSFlexGrid;
        search(w, "A1");
        g->setRow(g->Cell(1, "GUID") == l ? 1 : 2);
        const int row = g->Row();

        w.ui()->txtNewPrice->setText("八十");
        w.ui()->cmdNewPrice->click();
        const auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].text, QString("请输入正确的数据类型"));
        QCOMPARE(boxes[0].icon, MsgBox::Icon::Information);

        w.ui()->txtNewPrice->setText("89.5");
        w.ui()->cmdNewPrice->click();
        QCOMPARE(rec.TakeTexts(), QStringList({"变价成功"}));
        QCOMPARE(price(l) + "|" + price(m), QString("89.5|99"));
        QCOMPARE(g->Cell(row, "零售价") + "|" + g->Cell(3 - row, "零售价"), QString("89.5|99"));

        // The whole article, rows the list doesn't show included; the list follows.
        search(w, "B2");
        TestDb::Exec("Update Store Set TypeNo='B2' Where GUID='" + m + "'");
        w.ui()->txtNewPrice->setText("66");
        w.ui()->cmdChangePriceBath->click();
        QCOMPARE(rec.TakeTexts(), QStringList({"变价成功"}));
        QCOMPARE(price(other) + "|" + price(m) + "|" + price(l), QString("66|66|89.5"));
        QCOMPARE(g->Cell(1, "零售价"), QString("66"));
        QCOMPARE(TestDb::Count("BuyPrice", "Price=40"), 2);  // costs stay
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void aQuoteInTheNumberBreaksTheArticleChange() {
        TestDb db;
        TestDb::Exec("Insert Into Store Values('{Q}','" + Session::ShopNo +
                     "','O''K','T恤','青木','M','黑色','纯棉','一等品','广州',1,10,'','')");
        MsgRecorder rec;
        frmChangePrice w;
        VSGrid* g = w.ui()->VSFlexGrid;
        search(w, "O'K");
        QCOMPARE(g->Rows(), 2);
        w.ui()->txtNewPrice->setText("12");
        w.ui()->cmdChangePriceBath->click();
        const auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 2);  // the engine's text, then success all the same
        QCOMPARE(boxes[1].text, QString("变价成功"));
        QCOMPARE(price("{Q}"), QString("10"));
        QCOMPARE(g->Cell(1, "零售价"), QString("12"));
        w.ui()->cmdNewPrice->click();  // by the row's key it works
        QCOMPARE(rec.TakeTexts(), QStringList({"变价成功"}));
        QCOMPARE(price("{Q}"), QString("12"));
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestChangePrice)
#include "tst_changeprice.moc"
