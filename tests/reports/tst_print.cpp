// The print window: the numbering and the total row taken out and put back;
// the report laid out from the chosen columns, a long list on pages, written
// to PDF and printed through the print dialog, a list wider than the paper
// scaled to fit; and the grid into a workbook.
#include <QPrintDialog>
#include <QPrinter>
#include <QTemporaryDir>
#include <QToolButton>

#include "ARViewer.h"
#include "FileDialog.h"
#include "GridWorkbook.h"
#include "PrintTest.h"
#include "TestRegistry.h"

namespace {
// Exports the preview to a PDF file of the folder, answering the file dialog.
QString ExportPdf(PrintWindow& p, const QTemporaryDir& dir, const QString& name) {
    const QString file = dir.filePath(name);
    auto old = FileDialog::SetPresenter([&](auto, auto&, auto&, auto&) {
        return file.chopped(4);  // the window adds ".pdf"
    });
    p.ui->cmdPdf->click();
    FileDialog::SetPresenter(std::move(old));
    return file;
}

// The words of a PDF page with the bottom of their boxes, in points.
QList<std::pair<QString, double>> Words(const QString& file, int page) {
    const QString n = QString::number(page);
    const QString html = Tool("pdftotext", {"-bbox", "-f", n, "-l", n, file, "-"});
    QList<std::pair<QString, double>> out;
    QRegularExpression word("yMax=\"([\\d.]+)\">([^<]*)<");
    for (const auto& m : word.globalMatch(html))
        out.append({m.captured(2), m.captured(1).toDouble()});
    return out;
}

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

class TestPrint : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // Without a total row chkisTotal is locked. Unticking the title box
    // empties and locks the title; an empty title stops the preview with a
    // warning. Until chkisTotal is clicked the header row is record 1 and the
    // total row 2 (then "合计"). Unticking takes the total row out and
    // numbers from row 1; ticking puts the same row back and numbers from
    // row 2. Each preview rewrites the numbers.
    void numberingAndTheTotalRow() {
        MsgRecorder rec;
        VSGrid source;
        StockList(source, 2);  // header, 总合计, 2 x (合计 + 2 rows)
        PrintWindow plain(source, false);
        QVERIFY(!plain.ui->chkisTotal->isEnabled() && !plain.w.HasTotal && !plain.w.CanTotal);

        PrintWindow p(source);
        p.ui->chkIsTableHead->click();
        QVERIFY(!p.ui->txtTable->isEnabled() && p.ui->txtTable->toPlainText().isEmpty());
        p.ui->chkIsTableHead->click();
        p.Preview();
        QCOMPARE(Said(rec), QStringList("W:请输入表头！"));
        QVERIFY(!p.w.Report);
        p.ui->txtTable->setPlainText("库存表");

        p.ui->chkRecordIndex->setChecked(true);
        p.Preview();
        p.Preview();
        QCOMPARE(p.w.Report->lbInfo().Caption, QString("库存表"));
        QCOMPARE(ColTexts(p.grid, 0), QStringList({"1", "合计", "3", "4", "5", "6", "7", "8"}));
        p.ui->chkRecordIndex->setChecked(false);
        p.Preview();
        QCOMPARE(ColTexts(p.grid, 0), QStringList({"", "合计", "", "", "", "", "", ""}));

        const QStringList total = RowTexts(p.grid, 1);
        p.ui->chkisTotal->click();
        QVERIFY(!p.w.HasTotal);
        QCOMPARE(p.w.FirstRecordRow, int16_t(1));
        QCOMPARE(RowTexts(p.grid, 1), RowTexts(&source, 2));
        p.ui->chkRecordIndex->setChecked(true);
        p.Preview();
        QCOMPARE(ColTexts(p.grid, 0), QStringList({"", "1", "2", "3", "4", "5", "6"}));

        p.ui->chkisTotal->click();
        QVERIFY(p.w.HasTotal);
        QCOMPARE(p.w.FirstRecordRow, int16_t(2));
        QCOMPARE(RowTexts(p.grid, 1), total);
        QCOMPARE(p.grid->Rows(), source.Rows());
        p.Preview();
        QCOMPARE(ColTexts(p.grid, 0), QStringList({"", "合计", "1", "2", "3", "4", "5", "6"}));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // One centred field per ticked column, side by side from 0 with the
    // grid's widths, the record number column only when asked for; with
    // grid lines, every field has borders right, top and bottom, the first
    // also on the left. Ticking a column again brings its field back.
    void fieldsFollowTheChosenColumns() {
        VSGrid source;
        StockList(source, 2);
        PrintWindow p(source);
        p.Choose("种类", false);
        p.Choose("零售价", false);
        for (const bool numbered : {false, true}) {
            p.ui->chkRecordIndex->setChecked(numbered);
            p.Preview();
            const ARPrinter& r = *p.w.Report;
            QList<int> cols = {1, 3, 4, 5, 7};
            if (numbered) cols.prepend(0);
            QCOMPARE(int(r.Detail.Controls.size()), cols.size());
            int left = 0;
            for (int i = 0; i < cols.size(); ++i) {
                const ARPrinter::Control& f = r.Detail.Controls[size_t(i)];
                QCOMPARE(f.Tag.toInt(), cols[i]);
                QCOMPARE(f.Left, left);
                QCOMPARE(f.Width, cols[i] == 0 ? 420 : source.ColWidth(cols[i]));
                QVERIFY(f.BorderTop && f.BorderBottom && f.BorderRight && f.Alignment == 2);
                QCOMPARE(f.BorderLeft, i == 0);
                left += f.Width;
            }
            QCOMPARE(r.PrintWidth, left);
        }
        p.Choose("种类", true);
        p.ui->chkIsSwag->setChecked(false);
        p.Preview();
        QCOMPARE(p.w.Report->Detail.Controls[2].Tag, QString("2"));
        QVERIFY(!p.w.Report->Detail.Controls[1].BorderTop);
    }

    // A long list in PDF as in the preview: the same pages, the title on
    // each, the column heads once above the first row, every row once and
    // in order, nothing running into the footer band (the 21 points above
    // the one-inch margin) but "N of M", Chinese in a Song typeface. Printed
    // through the print dialog (to a PDF printer; cancelling prints nothing)
    // in landscape, the pages are wide and hold fewer rows.
    void longListOnPages() {
        QTemporaryDir dir;
        VSGrid source;
        StockList(source, 60, 3);  // 242 rows
        PrintWindow p(source);
        p.Preview();
        const int pages = p.ui->arv->PageCount();
        QVERIFY(pages > 3);
        p.ui->arv->findChild<QToolButton*>("cmdLast")->click();
        QCOMPARE(p.ui->arv->CurrentPage(), pages);

        const QString file = ExportPdf(p, dir, "库存.pdf");
        QCOMPARE(PdfInfo(file, "Pages").toInt(), pages);
        QCOMPARE(PdfInfo(file, "Page size"), QString("595 x 842 pts (A4)"));
        const QStringList text = PdfPages(file);
        QStringList codes, expected;
        for (int i = 0; i < pages; ++i) {
            QVERIFY(text[i].contains("服装店数据报表"));
            QCOMPARE(text[i].contains("货号"), i == 0);
            for (const auto& m : QRegularExpression("\\b69\\d{6}\\b").globalMatch(text[i]))
                codes << m.captured();
            QStringList footer;
            for (const auto& [w, bottom] : Words(file, i + 1))
                if (bottom > 842 - 72 - 21) footer << w;
            QCOMPARE(footer, QStringList({QString::number(i + 1), "of", QString::number(pages)}));
        }
        for (int r = 1; r < source.Rows(); ++r)
            if (!source.TextMatrix(r, 7).isEmpty()) expected << source.TextMatrix(r, 7);
        QCOMPARE(codes, expected);
        QVERIFY(Tool("pdffonts", {file}).contains("UMing"));

        p.ui->Opt1->setChecked(true);
        p.Preview();
        const QString wide = dir.filePath("横向.pdf");
        auto* print = p.ui->arv->findChild<QToolButton*>("cmdPrint");
        Modal::Queue([](QDialog* d) { d->reject(); });
        print->click();
        QVERIFY(!QFile::exists(wide));
        Modal::Queue([&](QDialog* d) {
            QPrinter* printer = qobject_cast<QPrintDialog*>(d)->printer();
            printer->setOutputFormat(QPrinter::PdfFormat);
            printer->setOutputFileName(wide);
            d->done(QDialog::Accepted);
        });
        print->click();
        QCOMPARE(PdfInfo(wide, "Page size"), QString("842 x 595 pts (A4)"));
        QVERIFY(p.ui->arv->PageCount() > pages);
        QCOMPARE(PdfInfo(wide, "Pages").toInt(), p.ui->arv->PageCount());
    }

    // Wider than the paper: the whole line is scaled onto the page, the last
    // column ending inside the right margin (72 points).
    void wideListScaledToThePaper() {
        QTemporaryDir dir;
        VSGrid source;
        StockList(source, 2);
        for (int c = 1; c < source.Cols(); ++c) source.setColWidth(c, 3000);
        PrintWindow p(source);
        p.Preview();
        const QString html = Tool("pdftotext", {"-bbox", ExportPdf(p, dir, "wide.pdf"), "-"});
        const auto m = QRegularExpression("xMax=\"([\\d.]+)\"[^>]*>条码<").match(html);
        QVERIFY(m.hasMatch());
        QVERIFY(m.captured(1).toDouble() <= 595 - 72 + 1);
    }

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
CS_TEST(TestPrint)

#include "tst_print.moc"
