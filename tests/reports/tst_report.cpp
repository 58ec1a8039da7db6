// The report: its fields laid out from the chosen columns, its pages for a
// long list, written to PDF and printed through the print dialog, and a list
// wider than the paper scaled to fit.
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QToolButton>

#include "ARViewer.h"
#include "FileDialog.h"
#include "Modal.h"
#include "MsgRecorder.h"
#include "PrintTest.h"
#include "TestRegistry.h"

namespace {
// Answers the PDF file dialog with a file of the folder; returns it.
QString ExportPdf(PrintWindow& p, const QTemporaryDir& dir, const QString& name) {
    const QString file = dir.filePath(name);
    auto old = FileDialog::SetPresenter(
        [&](FileDialog::Kind, const QString&, const QString&, const QString&) {
            return file.chopped(4);  // the window adds ".pdf"
        });
    p.ui->cmdPdf->click();
    FileDialog::SetPresenter(std::move(old));
    return file;
}

// The bar codes (one per data row, "69" and six digits) on a page, in order.
QStringList Codes(const QString& page) {
    QStringList out;
    for (const auto& m : QRegularExpression("\\b69\\d{6}\\b").globalMatch(page))
        out << m.captured();
    return out;
}

// Words of a PDF page lying in the page footer band (the 21 points above the
// one-inch bottom margin) or running into it from above.
QStringList FooterWords(const QString& file, int page) {
    const QString html = Tool("pdftotext", {"-bbox", "-f", QString::number(page), "-l",
                                            QString::number(page), file, "-"});
    const double height =
        QRegularExpression("height=\"([\\d.]+)\"").match(html).captured(1).toDouble();
    const double footerTop = height - 72 - 21;
    QStringList out;
    QRegularExpression word("yMin=\"([\\d.]+)\" xMax=\"[\\d.]+\" yMax=\"([\\d.]+)\">([^<]*)<");
    for (const auto& m : word.globalMatch(html))
        if (m.captured(2).toDouble() > footerTop) out << m.captured(3);
    return out;
}
}  // namespace

class TestReport : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // One field per ticked column, side by side from 0 with the grid's
    // widths; the record number column only when asked for; borders as one
    // grid. Fetching gives the header row first, then the rows in order.
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
                QCOMPARE(f.Tag, QString::number(cols[i]));
                QCOMPARE(f.Left, left);
                QCOMPARE(f.Width, p.grid->ColWidth(cols[i]));
                QCOMPARE(f.FontName, QString("宋体"));
                QVERIFY(f.BorderTop && f.BorderBottom && f.BorderRight);
                QCOMPARE(f.BorderLeft, i == 0);
                left += f.Width;
            }
            QCOMPARE(r.PrintWidth, left);
        }
        QCOMPARE(p.w.Report->Detail.Controls[0].Width, 420);

        p.ui->chkIsSwag->setChecked(false);
        p.Preview();
        ARPrinter& r = *p.w.Report;
        for (const auto& f : r.Detail.Controls)
            QVERIFY(!f.BorderLeft && !f.BorderTop && !f.BorderRight && !f.BorderBottom);
        r.Restart();
        for (int row = 0; row < p.grid->Rows(); ++row) {
            QVERIFY(r.FetchData());
            for (const auto& f : r.Detail.Controls)
                QCOMPARE(r.Fields[f.DataField], p.grid->TextMatrix(row, f.Tag.toInt()));
        }
        QVERIFY(!r.FetchData());

        // Nothing ticked and no numbers: a report of header and footer only.
        for (const char* head : {"货号", "品牌", "尺码", "数量", "条码"}) p.Choose(head, false);
        p.ui->chkRecordIndex->setChecked(false);
        p.Preview();
        QVERIFY(p.w.Report->Detail.Controls.empty());
        QCOMPARE(p.w.Report->PrintWidth, 0);
    }

    // A long list over many pages, previewed and written to PDF: the same
    // page count, the title on every page, the column heads once above the
    // first row, every row once and in order and none running into the page
    // footer, "N of M" on page N, Chinese in
    // a Song typeface; landscape pages are wide and hold fewer rows.
    void longListOnPages() {
        QTemporaryDir dir;
        VSGrid source;
        StockList(source, 60, 3);  // 1 + 1 + 60 x 4 = 242 rows
        PrintWindow p(source);
        p.Preview();
        const int pages = p.ui->arv->PageCount();
        QVERIFY(pages > 3);
        QCOMPARE(p.ui->arv->CurrentPage(), 1);
        p.ui->arv->findChild<QToolButton*>("cmdLast")->click();
        QCOMPARE(p.ui->arv->CurrentPage(), pages);

        const QString file = ExportPdf(p, dir, "库存.pdf");
        QCOMPARE(PdfInfo(file, "Pages").toInt(), pages);
        QVERIFY(PdfInfo(file, "Page size").contains("(A4)"));
        const QStringList text = PdfPages(file);
        QCOMPARE(text.size(), pages);
        QStringList codes;
        for (int i = 0; i < pages; ++i) {
            QVERIFY(text[i].contains("服装店数据报表"));
            QCOMPARE(text[i].contains("货号"), i == 0);
            QVERIFY2(text[i].simplified().endsWith(QString("%1 of %2").arg(i + 1).arg(pages)),
                     qPrintable(text[i].right(40)));
            codes << Codes(text[i]);
            QCOMPARE(FooterWords(file, i + 1),
                     QStringList({QString::number(i + 1), "of", QString::number(pages)}));
        }
        QStringList expected;
        for (int r = 1; r < source.Rows(); ++r)
            if (!source.TextMatrix(r, 7).isEmpty()) expected << source.TextMatrix(r, 7);
        QCOMPARE(codes, expected);
        QVERIFY(text[0].contains("总合计"));
        QVERIFY(Tool("pdffonts", {file}).contains("UMing"));

        p.ui->Opt1->setChecked(true);
        p.Preview();
        const QString wide = ExportPdf(p, dir, "横向.pdf");
        const QStringList size = PdfInfo(wide, "Page size").split(' ');
        QVERIFY(size.value(0).toDouble() > size.value(2).toDouble());
        QVERIFY(PdfInfo(wide, "Pages").toInt() > pages);
        QCOMPARE(PdfInfo(wide, "Pages").toInt(), p.ui->arv->PageCount());
    }

    // Wider than the paper: the whole line is scaled onto the page between
    // its margins (72 points), the last column included.
    void wideListScaledToThePaper() {
        QTemporaryDir dir;
        VSGrid source;
        StockList(source, 2);
        for (int c = 1; c < source.Cols(); ++c) source.setColWidth(c, 3000);
        PrintWindow p(source);
        p.Preview();
        QVERIFY(p.w.Report->PrintWidth > 6 * 3000);
        const QString file = ExportPdf(p, dir, "wide.pdf");
        const QString html = Tool("pdftotext", {"-bbox", "-f", "1", "-l", "1", file, "-"});
        const double pageWidth = PdfInfo(file, "Page size").split(' ').value(0).toDouble();
        QRegularExpression word(
            "xMin=\"([\\d.]+)\" yMin=\"[\\d.]+\" xMax=\"([\\d.]+)\"[^>]*>条码<");
        const auto m = word.match(html);
        QVERIFY2(m.hasMatch(), qPrintable(html.left(400)));
        QVERIFY(m.captured(2).toDouble() <= pageWidth - 72 + 1);
        QVERIFY(m.captured(1).toDouble() > pageWidth / 2);
    }

    // The print button prints the report on the printer chosen in the print
    // dialog (here a PDF printer); cancelling prints nothing.
    void printThroughTheDialog() {
        QTemporaryDir dir;
        const QString file = dir.filePath("printed.pdf");
        VSGrid source;
        StockList(source, 20);
        PrintWindow p(source);
        auto* print = p.ui->arv->findChild<QToolButton*>("cmdPrint");
        QVERIFY(!print->isEnabled());
        p.Preview();
        Modal::Queue([](QDialog* d) { d->reject(); });
        print->click();
        QVERIFY(!QFile::exists(file));
        Modal::Queue([&](QDialog* d) {
            auto* dialog = qobject_cast<QPrintDialog*>(d);
            QVERIFY(dialog);
            dialog->printer()->setOutputFormat(QPrinter::PdfFormat);
            dialog->printer()->setOutputFileName(file);
            dialog->done(QDialog::Accepted);
        });
        print->click();
        QCOMPARE(Modal::QueuedCount(), 0);
        QCOMPARE(PdfInfo(file, "Pages").toInt(), p.ui->arv->PageCount());
        QVERIFY(PdfPages(file).value(0).contains("0020"));
    }
};
CS_TEST(TestReport)

#include "tst_report.moc"
