// The backup settings window, and the closing backup that uses what it saves.
#include <QCheckBox>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "MsgRecorder.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "frmBackup.h"
#include "frmMain.h"
#include "ui_frmBackup.h"

class TestBackup : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void savedSettingFormsTheClosingBackup() {
        TestDb db;
        MsgRecorder rec;
        const QString folder = db.Folder() + "/备份";
        QDir().mkpath(folder);
        {
            frmBackup f;
            f.show();
            QVERIFY(f.setDirPath(folder));
            f.ui()->txtFileName->setText("店里");
            f.ui()->IsSave->setChecked(true);
            f.ui()->cmdSave->click();
            QCOMPARE(rec.TakeTexts(), QStringList{"保存成功！"});
            QVERIFY(!f.isVisible());
        }
        // Reopened, the window shows the setting.
        {
            frmBackup f;
            QCOMPARE(f.DirPath(), folder);
            QCOMPARE(f.ui()->txtFilePath->text(), folder);
            QCOMPARE(f.ui()->txtFileName->text(), QString("店里"));
            QVERIFY(f.ui()->IsSave->isChecked());
        }
        // Closing the system takes the copy; a picked folder has no final "/",
        // so the path and the name run together and the copy lands beside it.
        {
            frmMain m;
            m.show();
            rec.Yes();
            QVERIFY(m.close());
        }
        QCOMPARE(rec.TakeTexts(), QStringList{"确认要退出系统吗？"});
        QCOMPARE(QFileInfo(folder + "店里.mdb").size(), QFileInfo(db.Path()).size());
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestBackup)
#include "tst_backup.moc"
