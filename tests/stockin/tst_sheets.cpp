// Reading spreadsheet files: the same cell texts from every format, the
// first sheet only, and a clear refusal of what cannot be read.
#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include "Sheet.h"
#include "SheetFiles.h"
#include "TestRegistry.h"

using namespace SheetFiles;

class TestSheets : public QObject {
    Q_OBJECT

    QTemporaryDir dir_;
    QString file(const QString& name) const { return dir_.filePath(name); }

private Q_SLOTS:
    void everyFormatShowsTheSameCells() {
        const Rows rows = Supplier();
        WriteXlsx(file("shared.xlsx"), rows);
        WriteXlsx(file("inline.xlsx"), rows, true);
        WriteCsv(file("utf8.csv"), rows);
        // Names that lie: the content decides (a .csv of a Chinese desktop here).
        QFile::copy(file("shared.xlsx"), file("named.xls"));
        WriteCsv(file("gb-named.xls"), rows, "GB18030");
        for (const QString& path : {Made("supplier.xls"), file("shared.xlsx"), file("inline.xlsx"),
                                    file("utf8.csv"), file("named.xls"), file("gb-named.xls")}) {
            QString error = "untouched";  // emptied on success
            const auto sheet = Sheets::Open(path, &error);
            QVERIFY2(sheet && error.isEmpty(), qPrintable(path + ": " + error));
            for (int r = 0; r <= rows.size(); ++r)
                for (int c = 0; c <= 20; ++c)
                    QCOMPARE(sheet->Cell(r + 1, c + 1),
                             r < rows.size() && c < rows[r].size() ? Shown(rows[r][c]) : "");
            QCOMPARE(sheet->Cell(0, 1) + sheet->Cell(1, 0) + sheet->Cell(-1, -1), QString());
            QCOMPARE(QString("%1x%2").arg(sheet->Rows()).arg(sheet->Cols()), QString("13x19"));
            // Numbers and dates as a spreadsheet shows them, not as they are stored.
            QCOMPARE(QStringList({sheet->Cell(4, 6), sheet->Cell(4, 17), sheet->Cell(3, 11),
                                  sheet->Cell(1, 17), sheet->Cell(1, 18), sheet->Cell(2, 19),
                                  sheet->Cell(1, 1)}),
                     QStringList({"3", "45.5", "160", "2024-05-02", "2024-05-03", "12.5",
                                  "春季订货单, \"首批\""}));
        }
    }

    void timesAndDatesFollowTheCellFormat() {
        const auto at = [](double serial, const char* format) {
            return QVariant(QVariantMap{{"number", serial}, {"format", format}});
        };
        WriteXlsx(
            file("dates.xlsx"),
            {{at(45414.75, "yyyy/m/d h:mm"), at(0.5, "h:mm:ss"), at(45414, "[$-804]yyyy年m月"),
              at(45414, "0.00_);[Red](0.00)"), at(60, "yyyy-mm-dd"), at(45414.5, "[h]:mm"),
              at(45414, "\"d\"0")}});  // elapsed hours are no time of day
        const auto sheet = Sheets::Open(file("dates.xlsx"));
        QVERIFY(sheet);
        QStringList got;
        for (int c = 1; c <= 7; ++c) got << sheet->Cell(1, c);
        QCOMPARE(got, QStringList({"2024-05-02 18:00:00", "12:00:00", "2024-05-02", "45414",
                                   "1900-02-29", "45414.5", "45414"}));
    }

    void refusesWhatItCannotRead() {
        WriteXlsx(file("good.xlsx"), Supplier());
        const auto raw = [this](const QString& name, const QByteArray& content) {
            QFile f(file(name));
            return f.open(QIODevice::WriteOnly) && f.write(content) == content.size() ? file(name)
                                                                                      : QString();
        };
        const QString foreign = "不是可以读取的表格文件！";
        const QList<QPair<QString, QString>> cases{
            {file("missing.xlsx"), "文件不存在！"},
            {raw("empty.csv", ""), foreign},
            {raw("png.xls", QByteArray("\x89PNG\r\n\x1a\n\0\0", 10)), foreign},
            {raw("web.xls", " <html><table></table></html>"), foreign},
            {Made("notabook.xls"), foreign},
            {Truncated(file("good.xlsx"), file("cut.xlsx")), "文件已损坏，无法读取！"},
            {Truncated(Made("supplier.xls"), file("cut.xls")), "文件已损坏，无法读取！"},
            {Made("encrypted.xlsx"), "文件设有密码保护，无法读取！"},
            {Made("encrypted.xls"), "文件设有密码保护，无法读取！"},
        };
        for (const auto& [path, reason] : cases) {
            QString error;
            QVERIFY2(!Sheets::Open(path, &error), qPrintable(path));
            QVERIFY2(error.startsWith(reason) && error.endsWith(QDir::toNativeSeparators(path)),
                     qPrintable(path + ": " + error));
        }
    }
};

CS_TEST(TestSheets)
#include "tst_sheets.moc"
