// The report: fields laid out from the chosen columns; a long list on
// pages, written to PDF and printed through the print dialog; a list wider
// than the paper scaled to fit.
#include <QPrintDialog>
#include <QPrinter>
#include <QTemporaryDir>
#include <QToolButton>

#include "ARViewer.h"
#include "FileDialog.h"
#include "Modal.h"
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
}  // namespace

class TestReport : public QObject {
    Q_OBJECT
private Q_SLOTS:
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
};
CS_TEST(TestReport)

#include "tst_report.moc"
