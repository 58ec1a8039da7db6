// The shops window and the renaming of the default shop.
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "AdminCommands.h"
#include "Modal.h"
#include "MsgRecorder.h"
#include "Session.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "frmChangeShop.h"
#include "frmMain.h"
#include "frmShopSetting.h"
#include "ui_frmChangeShop.h"
#include "ui_frmShopSetting.h"

class TestShop : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { RegisterAdminCommands(); }

    void renameChangesTheSessionNotTheTitle() {
        TestDb db;
        MsgRecorder rec;
        frmMain m;
        const QString title = m.windowTitle();
        QCOMPARE(title, frmMain::FixedTitle() + "-本店");

        bool checkedDialog = false;
        Modal::Queue([&](QDialog* d) {
            auto* shops = qobject_cast<frmChangeShop*>(d);
            QVERIFY(shops);
            QListWidget* list = shops->ui()->ListView;
            QCOMPARE(list->count(), 1);
            QCOMPARE(list->item(0)->text(), QString("本店"));
            QCOMPARE(frmChangeShop::ItemKey(list->item(0)), kDefaultShop);
            Modal::Queue([&](QDialog* d2) {
                auto* s = qobject_cast<frmShopSetting*>(d2);
                QVERIFY(s);
                QCOMPARE(s->windowTitle(), QString("店面"));
                QCOMPARE(s->Mode(), 2);
                QCOMPARE(s->ui()->txtNo->text(), QString("本店"));
                QCOMPARE(s->ui()->txtNo->selectedText(), QString("本店"));
                s->ui()->txtNo->setText("时尚女装");
                QTest::keyClick(s->ui()->txtNo, Qt::Key_Return);
                QVERIFY(!s->isVisible());
            });
            list->setCurrentRow(0);
            shops->ui()->cmdEdit->click();
            QCOMPARE(list->item(0)->text(), QString("时尚女装"));
            checkedDialog = true;
            shops->close();
        });
        // The toolbar button opens the same window as the menu item.
        m.ToolButton("ChangeShop")->trigger();
        QVERIFY(checkedDialog);
        QCOMPARE(Session::ShopName, QString("时尚女装"));
        QCOMPARE(TestDb::Scalar("Select ShopName from Shop Where GUID='" + kDefaultShop + "'"),
                 QString("时尚女装"));
        QCOMPARE(m.windowTitle(), title);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void nameRules() {
        TestDb db;
        MsgRecorder rec;
        frmChangeShop shops;
        // A second shop: choosing it still renames the default shop.
        shops.AddItem("{OTHER}", "分店");
        {
            frmShopSetting s(&shops);
            s.LoadIt(2, "分店");
            s.ui()->txtNo->clear();
            s.ui()->cmdNewGoods->click();
            const auto boxes = rec.Take();
            QCOMPARE(boxes.size(), 1);
            QCOMPARE(boxes[0].text, QString("名称不能为空！"));
            QCOMPARE(boxes[0].icon, MsgBox::Icon::Information);
            QCOMPARE(boxes[0].title, MsgBox::AppTitle());
            QCOMPARE(TestDb::Scalar("Select ShopName from Shop"), QString("本店"));
            s.ui()->txtNo->setText("Tom's");
            s.ui()->cmdNewGoods->click();
        }
        // The name is stored as typed; the session holds it with the quote doubled.
        QCOMPARE(TestDb::Scalar("Select ShopName from Shop Where GUID='" + kDefaultShop + "'"),
                 QString("Tom's"));
        QCOMPARE(Session::ShopName, QString("Tom''s"));
        QCOMPARE(shops.Item("{OTHER}")->text(), QString("分店"));
        QCOMPARE(TestDb::Count("Shop"), 1);

        // Nothing selected: the command has no item and fails with the toolkit's error.
        shops.ui()->ListView->clearSelection();
        shops.ui()->cmdEdit->click();
        const auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].icon, MsgBox::Icon::Critical);
        QVERIFY(boxes[0].text.contains("91"));
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestShop)
#include "tst_shop.moc"
