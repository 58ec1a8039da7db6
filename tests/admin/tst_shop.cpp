// The shops window: renaming the default shop.
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
        Modal::Queue([&](QDialog* d) {
            auto* shops = qobject_cast<frmChangeShop*>(d);
            QVERIFY(shops);
            Modal::Queue([&](QDialog* d2) {
                auto* s = qobject_cast<frmShopSetting*>(d2);
                QVERIFY(s);
                QCOMPARE(s->ui()->txtNo->text(), QString("本店"));
                s->ui()->txtNo->clear();
                s->ui()->cmdNewGoods->click();
                QCOMPARE(rec.TakeTexts(), QStringList{"名称不能为空！"});
                s->ui()->txtNo->setText("时尚女装");
                QTest::keyClick(s->ui()->txtNo, Qt::Key_Return);
            });
            shops->ui()->ListView->setCurrentRow(0);
            shops->ui()->cmdEdit->click();
            QCOMPARE(shops->ui()->ListView->item(0)->text(), QString("时尚女装"));
            shops->close();
        });
        m.ToolButton("ChangeShop")->trigger();
        QCOMPARE(Modal::QueuedCount(), 0);
        QCOMPARE(Session::ShopName, QString("时尚女装"));
        QCOMPARE(TestDb::Scalar("Select ShopName from Shop Where GUID='" + kDefaultShop + "'"),
                 QString("时尚女装"));
        QCOMPARE(m.windowTitle(), title);
        QCOMPARE(title, frmMain::FixedTitle() + "-本店");
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestShop)
#include "tst_shop.moc"
