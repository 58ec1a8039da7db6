// The shared routines of the windows: combo filling, grid layout, Enter as Tab.
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include "ModMain.h"
#include "MsgRecorder.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "VSGrid.h"
#include "clsCombox.h"

class TestModMain : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void fillComboFromLists() {
        TestDb db;
        QComboBox box;
        box.addItem("old");
        FillCombo("等级", &box);
        QCOMPARE(box.count(), 3);
        QCOMPARE(box.itemText(0), QString("优等品"));
        QCOMPARE(box.currentIndex(), 0);
        FillCombo("没有的列表", &box);
        QCOMPARE(box.count(), 0);
        QCOMPARE(box.currentIndex(), -1);
        FillComboAll("没有的列表", &box);
        QCOMPARE(box.count(), 1);
        QCOMPARE(box.itemText(0), QString("全部"));
        QCOMPARE(box.currentIndex(), -1);
        FillComboAll("等级", &box);
        QCOMPARE(box.count(), 4);
        QCOMPARE(box.currentText(), QString("全部"));
    }

    void gridColumnsAndRows() {
        VSGrid g;
        g.setCols(4);
        g.setColHidden(2, true);
        g.setColAlignment(2, VSGrid::AlignLeftCenter);
        SetGridCols(&g, 1140.4f);
        QCOMPARE(g.ColWidth(0), 200);
        QCOMPARE(g.ColWidth(1), 1140);
        QCOMPARE(g.ColWidth(2), 1140);  // hidden columns get the width too
        QCOMPARE(g.ColAlignment(1), int(VSGrid::AlignCenterCenter));
        QCOMPARE(g.ColAlignment(2), int(VSGrid::AlignLeftCenter));  // and keep their alignment
        RemoveVsRows(&g);
        QCOMPARE(g.Rows(), 1);
        g.AddItem("\ta\tb\tc");
        g.AddItem("\td\te\tf");
        g.setTextMatrix(0, 1, "头");
        RemoveVsRows(&g);
        QCOMPARE(g.Rows(), 1);
        QCOMPARE(g.TextMatrix(0, 1), QString("头"));
    }

    void comboWithHiddenValues() {
        QComboBox box;
        clsCombox c;
        c.Initial(&box, "{A},{B}", "店长,收银员", "");
        QCOMPARE(c.ListCount(), 2);
        QCOMPARE(c.No(), QString("{A}"));  // the box selects its first entry
        c.setNo("{B}");
        QCOMPARE(c.Caption(), QString("收银员"));
        c.setNo("{NONE}");
        QCOMPARE(c.ListIndex(), -1);
        QCOMPARE(c.No(), QString());
        c.setNo("");
        QCOMPARE(c.ListIndex(), -1);
        c.AddItem("{C}", "导购");
        c.setNo("{C}");
        QCOMPARE(c.ListIndex(), 2);

        // A first entry is its own value; lists of different lengths add nothing more.
        QComboBox box2;
        clsCombox c2;
        c2.Initial(&box2, "{A},{B}", "店长,收,银员", "全部");
        QCOMPARE(box2.count(), 1);
        c2.setNo("全部");
        QCOMPARE(c2.ListIndex(), 0);
        QComboBox box3;
        clsCombox c3;
        c3.Initial(&box3, "", "", "");
        QCOMPARE(box3.count(), 0);
        c3.Initial(&box3, "", "店长", "");  // an empty text is an empty list: lengths differ
        QCOMPARE(box3.count(), 0);
        QCOMPARE(c3.No(), QString());
    }

    void enterMovesFocusOn() {
        QWidget w;
        auto* lay = new QVBoxLayout(&w);
        auto* a = new QLineEdit;
        auto* b = new QComboBox;
        b->setEditable(true);
        auto* c = new QLineEdit;
        lay->addWidget(a);
        lay->addWidget(b);
        lay->addWidget(c);
        EnterToTab(a);
        EnterToTab(b);
        w.show();
        QApplication::setActiveWindow(&w);
        QVERIFY(QTest::qWaitForWindowActive(&w));
        a->setFocus();
        QTest::keyClick(a, Qt::Key_Return);
        QTRY_VERIFY(b->hasFocus() || b->lineEdit()->hasFocus());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QTRY_VERIFY(c->hasFocus());
    }

    void digitsOnly() {
        QLineEdit box;
        SetNumberOnly(&box, true);
        QTest::keyClicks(&box, "1a2.3");
        QCOMPARE(box.text(), QString("123"));
        SetNumberOnly(&box, false);
        QTest::keyClicks(&box, "x");
        QCOMPARE(box.text(), QString("123x"));
    }
};

CS_TEST(TestModMain)
#include "tst_modmain.moc"
