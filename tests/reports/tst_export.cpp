// The grid into a workbook: the cells as the window's grid holds them, the
// columns closed up, borders, and the file in the documents folder.
#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "GridWorkbook.h"
#include "MsgRecorder.h"
#include "PrintTest.h"
#include "TestRegistry.h"

namespace {
// The user's documents folder, for the life of the object, as the desktop
// names it in ~/.config/user-dirs.dirs.
struct Documents {
    QTemporaryDir dir;
    QString path = dir.filePath("文档");
    QByteArray oldConfig = qgetenv("XDG_CONFIG_HOME");
    Documents() {
        QDir(dir.path()).mkpath("config");
        QFile f(dir.filePath("config/user-dirs.dirs"));
        if (f.open(QIODevice::WriteOnly)) f.write("XDG_DOCUMENTS_DIR=\"" + path.toUtf8() + "\"\n");
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(dir.filePath("config")));
    }
    ~Documents() { qputenv("XDG_CONFIG_HOME", oldConfig); }
};

// Records the files handed to the spreadsheet program, which opens them or not.
struct Opener {
    QStringList opened;
    GridWorkbook::Opener old;
    explicit Opener(bool opens) {
        old = GridWorkbook::SetOpener([this, opens](const QString& path) {
            opened << path;
            return opens;
        });
    }
    ~Opener() { GridWorkbook::SetOpener(std::move(old)); }
};
}  // namespace

class TestExport : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // After a numbered preview, an unticked column and the total row taken
    // out: grid row r is sheet row r + 1, column 0 in column A, the hidden
    // columns left out and the rest closed up, texts as text with their
    // leading zeros, every written cell bordered, nothing else written.
    void workbookHoldsTheGridAsItStands() {
        Documents docs;
        Opener opener(true);
        MsgRecorder rec;
        VSGrid source;
        StockList(source, 2);
        PrintWindow p(source);
        p.Choose("品牌", false);
        p.ui->chkisTotal->click();
        p.ui->chkRecordIndex->setChecked(true);
        p.Preview();
        p.ui->cmdExcel->click();
        QCOMPARE(opener.opened.size(), 1);

        const Sheet sheet = ReadSheet(opener.opened[0]);
        const QList<int> cols = {0, 1, 2, 4, 5, 6, 7};  // 品牌 (3) unticked, GUID (8) hidden
        QCOMPARE(sheet.text.size(), p.grid->Rows() * cols.size());
        for (int r = 0; r < p.grid->Rows(); ++r) {
            for (int i = 0; i < cols.size(); ++i) {
                const QString ref = Ref(i + 1, r + 1);
                QCOMPARE(sheet.text.value(ref), p.grid->TextMatrix(r, cols[i]));
                QVERIFY2(sheet.bordered.value(ref), qPrintable(ref));
                if (!sheet.text[ref].isEmpty()) QVERIFY(sheet.isText[ref]);
            }
        }
        QCOMPARE(sheet.text["A2"], QString("1"));
        QCOMPARE(sheet.text["B2"], QString("合计"));
        QCOMPARE(sheet.text["B3"], QString("0001"));
        QCOMPARE(sheet.text["G3"], QString("69000000"));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // Each export is a new file in the documents folder, named by date and
    // time; where no program opens it, a box says where it is.
    void fileInTheDocumentsFolder() {
        Documents docs;
        MsgRecorder rec;
        VSGrid source;
        StockList(source, 1);
        PrintWindow p(source);
        {
            Opener opener(true);
            p.ui->cmdExcel->click();
            p.ui->cmdExcel->click();
            QCOMPARE(opener.opened.size(), 2);
            QVERIFY(opener.opened[0] != opener.opened[1]);
            const QRegularExpression name("^数据报表_\\d{8}_\\d{6}(_\\d+)?\\.xlsx$");
            for (const QString& path : opener.opened) {
                const QFileInfo info(path);
                QCOMPARE(info.absolutePath(), docs.path);
                QVERIFY2(name.match(info.fileName()).hasMatch(), qPrintable(info.fileName()));
                QCOMPARE(ReadSheet(path).text["B2"], QString("总合计"));
            }
            QVERIFY(rec.Take().isEmpty());
        }
        Opener opener(false);
        p.ui->cmdExcel->click();
        const QList<MsgBox::Box> boxes = rec.Take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].icon, MsgBox::Icon::Information);
        QVERIFY(boxes[0].text.contains(opener.opened.value(0)));
        QCOMPARE(QDir(docs.path).entryList(QDir::Files).size(), 3);
    }
};
CS_TEST(TestExport)

#include "tst_export.moc"
