// The backup settings window, and the closing backup that uses what it saves.
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "FileDialog.h"
#include "MsgRecorder.h"
#include "Session.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "frmBackup.h"
#include "frmMain.h"
#include "ui_frmBackup.h"

class TestBackup : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void loadsTheSavedSetting() {
        TestDb db;
        MsgRecorder rec;
        const QString folder = db.Folder() + "/备份";
        QDir().mkpath(folder);
        TestDb::Exec("Update FileSave set dirpath='/srv/x/',Drive='/',Dir='" + folder +
                     "',FileName='店里',IsSave=1");
        frmBackup f;
        QCOMPARE(f.windowTitle(), QString("数据备份设置"));
        QCOMPARE(f.ui()->comFile->currentText(), QString(".mdb"));
        QCOMPARE(f.DirPath(), folder);
        QCOMPARE(f.DrivePath(), QString("/"));
        QCOMPARE(f.ui()->txtFilePath->text(), QString("/srv/x/"));  // after the lists
        QCOMPARE(f.ui()->txtFileName->text(), QString("店里"));
        QVERIFY(f.ui()->IsSave->isChecked());

        // A folder that is gone leaves Dir as it was; an empty table leaves the design.
        TestDb::Exec("Update FileSave set Dir='/no/such/folder',IsSave=0");
        frmBackup gone;
        QVERIFY(gone.DirPath() != "/no/such/folder");
        QVERIFY(!gone.ui()->IsSave->isChecked());
        TestDb::Exec("Delete from FileSave");
        frmBackup empty;
        QVERIFY(empty.ui()->txtFileName->text().isEmpty());
        empty.ui()->cmdSave->click();  // changes no row, still reports success
        QCOMPARE(rec.TakeTexts(), QStringList{"保存成功！"});
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void pickingFoldersMovesThePath() {
        TestDb db;
        MsgRecorder rec;
        const QString a = db.Folder() + "/甲";
        const QString b = db.Folder() + "/乙";
        QDir().mkpath(a);
        QDir().mkpath(b);
        frmBackup f;
        QVERIFY(f.setDirPath(a));
        QCOMPARE(f.ui()->txtFilePath->text(), a);
        // The drive moves the folder list, and the path with it, to the drive's
        // current folder.
        QVERIFY(f.setDrivePath(QDir::homePath()));
        QCOMPARE(f.DirPath(), QDir::homePath());
        QCOMPARE(f.ui()->txtFilePath->text(), QDir::homePath());
        QVERIFY(f.setDrivePath("/"));
        QCOMPARE(f.DirPath(), a.startsWith(QDir::homePath() + "/") ? QString("/") : a);
        // The "…" button asks for a folder.
        FileDialog::SetPresenter(
            [&](FileDialog::Kind k, const QString&, const QString&, const QString&) {
                return k == FileDialog::Kind::Folder ? b : QString();
            });
        f.ui()->cmdBrowse->click();
        FileDialog::SetPresenter({});
        QCOMPARE(f.DirPath(), b);
        QCOMPARE(f.ui()->txtFilePath->text(), b);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void savedSettingFormsTheClosingBackup() {
        TestDb db;
        MsgRecorder rec;
        const QString folder = db.Folder() + "/备份";
        QDir().mkpath(folder);
        {
            frmBackup f;
            f.show();
            QVERIFY(f.setDirPath(folder));
            // A picked folder has no final "/": the copy lands beside it.
            f.ui()->txtFileName->setText("店里");
            f.ui()->IsSave->setChecked(true);
            f.ui()->cmdSave->click();
            const auto boxes = rec.Take();
            QCOMPARE(boxes.size(), 1);
            QCOMPARE(boxes[0].text, QString("保存成功！"));
            QCOMPARE(boxes[0].icon, MsgBox::Icon::Information);
            QVERIFY(!f.isVisible());
        }
        QString target;
        bool isSave = false;
        QVERIFY(frmMain::ReadBackupSetting(target, isSave));
        QCOMPARE(target, folder + "店里.mdb");
        QVERIFY(isSave);
        QCOMPARE(TestDb::Scalar("Select Dir from FileSave"), folder);
        QCOMPARE(TestDb::Scalar("Select isSave from FileSave"), QString("-1"));

        // Typed with a final "/", the copy goes inside; closing takes it.
        {
            frmBackup f;
            QCOMPARE(f.ui()->txtFilePath->text(), folder);
            f.ui()->txtFilePath->setText(folder + "/");
            f.ui()->cmdSave->click();
            rec.Take();
        }
        QVERIFY(frmMain::ReadBackupSetting(target, isSave));
        QCOMPARE(target, folder + "/店里.mdb");
        {
            frmMain m;
            m.show();
            rec.Yes();
            QVERIFY(m.close());
        }
        rec.Take();
        QVERIFY(QFile::exists(folder + "/店里.mdb"));
        QCOMPARE(QFileInfo(folder + "/店里.mdb").size(), QFileInfo(db.Path()).size());
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void quoteInATextFailsTheSave() {
        TestDb db;
        MsgRecorder rec;
        frmBackup f;
        f.show();
        f.ui()->txtFileName->setText("Tom's");
        f.ui()->IsSave->setChecked(true);
        f.ui()->cmdSave->click();
        const auto boxes = rec.Take();
        QCOMPARE(boxes.size(), 1);  // the engine's text only
        QVERIFY(boxes[0].text != QString("保存成功！"));
        QVERIFY(f.isVisible());
        QCOMPARE(TestDb::Scalar("Select isSave from FileSave"), QString("0"));
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestBackup)
#include "tst_backup.moc"
