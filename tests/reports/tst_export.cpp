// The grid into a workbook: the cells as the window's grid holds them, the
// columns closed up, borders, and new files in the documents folder.
#include <QDir>
#include <QTemporaryDir>

#include "GridWorkbook.h"
#include "MsgRecorder.h"
#include "PrintTest.h"
#include "TestRegistry.h"

namespace {
// A documents folder named as a Chinese desktop names it, in
// ~/.config/user-dirs.dirs, and a spreadsheet program that opens files or
// not, recording them; for the life of the object.
struct Desktop {
    QTemporaryDir dir;
    QString documents = dir.filePath("文档");
    QByteArray oldConfig = qgetenv("XDG_CONFIG_HOME");
    QStringList opened;
    bool opens = true;
    GridWorkbook::Opener oldOpener = GridWorkbook::SetOpener([this](const QString& path) {
        opened << path;
        return opens;
    });
    Desktop() {
        QFile f(dir.filePath("user-dirs.dirs"));
        if (f.open(QIODevice::WriteOnly))
            f.write("XDG_DOCUMENTS_DIR=\"" + documents.toUtf8() + "\"\n");
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(dir.path()));
    }
    ~Desktop() {
        qputenv("XDG_CONFIG_HOME", oldConfig);
        GridWorkbook::SetOpener(std::move(oldOpener));
    }
};
}  // namespace

class TestExport : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // After a numbered preview, an unticked column and the total row taken
    // out: grid row r is sheet row r + 1, column 0 in column A, the hidden
    // columns left out and the rest closed up, texts as text with their
    // leading zeros, every written cell bordered, nothing else written. Each
    // export is a new file in the documents folder named by date and time;
    // where no program opens it, a box says where it is.
    void workbookOfTheGridAsItStands() {
        Desktop desktop;
        MsgRecorder rec;
        VSGrid source;
        StockList(source, 2);
        PrintWindow p(source);
        p.Choose("品牌", false);
        p.ui->chkisTotal->click();
        p.ui->chkRecordIndex->setChecked(true);
        p.Preview();
        p.ui->cmdExcel->click();
        QCOMPARE(desktop.opened.size(), 1);

        const Sheet sheet = ReadSheet(desktop.opened[0]);
        const QList<int> cols = {0, 1, 2, 4, 5, 6, 7};  // 品牌 (3) unticked, GUID (8) hidden
        QCOMPARE(sheet.text.size(), p.grid->Rows() * cols.size());
        for (int r = 0; r < p.grid->Rows(); ++r) {
            for (int i = 0; i < cols.size(); ++i) {
                const QString ref = Ref(i + 1, r + 1);
                QCOMPARE(sheet.text.value(ref), p.grid->TextMatrix(r, cols[i]));
                QVERIFY2(sheet.bordered.value(ref), qPrintable(ref));
                QVERIFY(sheet.isText[ref] || sheet.text[ref].isEmpty());
            }
        }
        QCOMPARE(sheet.text["A2"] + sheet.text["B2"] + sheet.text["B3"], QString("1合计0001"));

        desktop.opens = false;
        p.ui->cmdExcel->click();
        QCOMPARE(desktop.opened.size(), 2);
        QVERIFY(desktop.opened[0] != desktop.opened[1]);
        for (const QString& path : desktop.opened) {
            QCOMPARE(QFileInfo(path).absolutePath(), desktop.documents);
            QVERIFY(QRegularExpression("/数据报表_\\d{8}_\\d{6}(_\\d+)?\\.xlsx$")
                        .match(path)
                        .hasMatch());
        }
        const QList<MsgBox::Box> boxes = rec.Take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].icon, MsgBox::Icon::Information);
        QVERIFY(boxes[0].text.contains(desktop.opened[1]));
    }
};
CS_TEST(TestExport)

#include "tst_export.moc"
