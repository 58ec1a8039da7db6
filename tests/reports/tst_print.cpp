// The print window: the numbering and the total row taken out and put back;
// the report laid out from the chosen columns, a long list on pages, written
// to PDF and printed through the print dialog, a list wider than the paper
// scaled to fit; and the grid into a workbook.
#include <QListWidget>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QToolButton>

#include "ARPrinter.h"
#include "ARViewer.h"
#include "FileDialog.h"
#include "GridWorkbook.h"
#include "ModMain.h"
#include "ReportData.h"
#include "TestRegistry.h"

namespace {
// A stock list of `articles` articles with `sizes` rows each: the fixed
// column, 货号 .. 条码, and a hidden key column at the end; widths differ by
// column. Totals as the stock query makes them: "合计" above each article's
// rows, "总合计" as row 1. Article numbers have leading zeros ("0001").
inline void StockList(VSGrid& g, int articles, int sizes = 2) {
    const QStringList names = {"货号", "种类", "品牌", "尺码", "数量", "零售价", "条码", "GUID"};
    std::vector<Recordset::Row> rows;
    for (int a = 1; a <= articles; ++a) {
        for (int s = 0; s < sizes; ++s) {
            const int n = int(rows.size());
            rows.push_back({QString("%1").arg(a, 4, 10, QChar('0')), "衬衫", "红豆",
                            QString("%1码").arg(160 + 5 * s), s + 1, 99.5,
                            QString("69%1").arg(n, 6, 10, QChar('0')), QString("{K%1}").arg(n)});
        }
    }
    g.Bind(Recordset(names, rows));
    SetGridCols(&g, 1160);
    g.setColWidth(2, 900);
    g.setColWidth(7, 1500);
    g.setColHidden(8, true);
    const int qty = g.ColIndex("数量");
    g.Subtotal(VSGrid::SubtotalSum, 1, qty, "d", Qt::red, true, "合计", true);
    g.Subtotal(VSGrid::SubtotalSum, 0, qty, "d", Qt::red, true, "总合计", true);
}

// The texts of a grid column, from row 0.
inline QStringList ColTexts(VSGrid* g, int col) {
    QStringList out;
    for (int r = 0; r < g->Rows(); ++r) out << g->TextMatrix(r, col);
    return out;
}

// The print window loaded with a grid, as a list window's print button leaves it.
struct PrintWindow {
    frmPrint w;
    Ui::frmPrint* ui;
    VSGrid* grid;

    PrintWindow(VSGrid& source, bool hasTotal = true) : ui(w.ui()), grid(w.ui()->VSFlexGrid) {
        w.LoadIt(&source, hasTotal);
        w.show();
    }
    // Ticks or unticks the entry of listField that names a column.
    void Choose(const QString& head, bool on) {
        const auto items = ui->listField->findItems(head, Qt::MatchExactly);
        QCOMPARE(items.size(), 1);
        items[0]->setCheckState(on ? Qt::Checked : Qt::Unchecked);
    }
    void Preview() { ui->cmdPreview->click(); }
};

// Runs a tool and returns its standard output; fails the test when it fails.
inline QString Tool(const QString& program, const QStringList& args) {
    QProcess p;
    p.start(program, args);
    if (!p.waitForFinished(60000) || p.exitCode() != 0) {
        QTest::qFail(qPrintable(program + " failed: " + p.readAllStandardError()), __FILE__,
                     __LINE__);
        return QString();
    }
    return QString::fromUtf8(p.readAllStandardOutput());
}

// A line of pdfinfo's answer ("Pages", "Page size").
inline QString PdfInfo(const QString& file, const QString& key) {
    for (const QString& line : Tool("pdfinfo", {file}).split('\n'))
        if (line.startsWith(key + ":")) return line.mid(key.size() + 1).trimmed();
    return QString();
}

// The first sheet of a workbook, by cell reference ("B3"): the text, whether
// it is stored as a string, and whether its format has thin borders all round.
struct Sheet {
    QMap<QString, QString> text;
    QMap<QString, bool> isText, bordered;
};

inline Sheet ReadSheet(const QString& file) {
    auto member = [&](const char* name) { return Tool("unzip", {"-p", file, name}); };
    auto all = [](const char* re, const QString& in) {
        return QRegularExpression(QString::fromUtf8(re)).globalMatch(in);
    };
    QStringList strings;
    for (const auto& m : all("<si><t[^>]*>([^<]*)</t></si>", member("xl/sharedStrings.xml")))
        strings << m.captured(1);
    const QString styles = member("xl/styles.xml");
    QList<bool> thin;  // by border
    for (const auto& m : all("<border>(.*?)</border>|<border/>", styles))
        thin << (m.captured(1).count("style=\"thin\"") == 4);
    QList<bool> xfThin;  // by cell format
    const QString xfs = QRegularExpression("<cellXfs.*</cellXfs>").match(styles).captured();
    for (const auto& m : all("<xf [^>]*borderId=\"(\\d+)\"", xfs))
        xfThin << thin.value(m.captured(1).toInt());

    Sheet sheet;
    const char* cell =
        "<c r=\"(\\w+)\"(?: s=\"(\\d+)\")?(?: t=\"(\\w+)\")?(?:/>|><v>([^<]*)</v></c>)";
    for (const auto& m : all(cell, member("xl/worksheets/sheet1.xml"))) {
        const QString ref = m.captured(1);
        sheet.isText[ref] = m.captured(3) == "s";
        sheet.text[ref] = sheet.isText[ref] ? strings.value(m.captured(4).toInt()) : m.captured(4);
        sheet.bordered[ref] = xfThin.value(m.captured(2).toInt());
    }
    return sheet;
}

// "A".."Z" for sheet columns 1..26.
inline QString Ref(int sheetCol, int sheetRow) {
    return QChar('A' + sheetCol - 1) + QString::number(sheetRow);
}

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

// The words of each page of a PDF file, with the right and the bottom edge
// of their boxes, in points.
struct Word {
    QString text;
    double right, bottom;
};
QList<QList<Word>> PdfWords(const QString& file) {
    QList<QList<Word>> pages;
    const QRegularExpression word("xMax=\"([\\d.]+)\" yMax=\"([\\d.]+)\">([^<]*)<");
    for (const QString& page : Tool("pdftotext", {"-bbox", file, "-"}).split("<page ").mid(1)) {
        pages.append(QList<Word>());
        for (const auto& m : word.globalMatch(page))
            pages.last().append(
                {m.captured(3), m.captured(1).toDouble(), m.captured(2).toDouble()});
    }
    return pages;
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
        QCOMPARE(RowTexts(p.grid, 1), RowTexts(&source, 2));
        p.ui->chkRecordIndex->setChecked(true);
        p.Preview();
        QCOMPARE(ColTexts(p.grid, 0), QStringList({"", "1", "2", "3", "4", "5", "6"}));

        p.ui->chkisTotal->click();
        QVERIFY(p.w.HasTotal);  // the restored "合计" cell would not show it
        QCOMPARE(RowTexts(p.grid, 1), total);
        p.Preview();
        QCOMPARE(ColTexts(p.grid, 0), QStringList({"", "合计", "1", "2", "3", "4", "5", "6"}));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // The list offers the visible columns, ticked. One centred field per
    // ticked column, side by side from 0 with the grid's widths, the record
    // number column only when asked for; with grid lines, every field has
    // borders right, top and bottom, the first also on the left. Ticking a
    // column again brings its field back.
    void fieldsFollowTheChosenColumns() {
        VSGrid source;
        StockList(source, 2);
        PrintWindow p(source);
        QStringList offered;  // the visible columns, ticked
        for (const QListWidgetItem* i : p.ui->listField->findItems("*", Qt::MatchWildcard))
            offered << i->text() + (i->checkState() == Qt::Checked ? "" : " unticked");
        QCOMPARE(offered, QStringList({"货号", "种类", "品牌", "尺码", "数量", "零售价", "条码"}));
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
        QCOMPARE(PdfInfo(file, "Page size"), QString("595 x 842 pts (A4)"));
        const QList<QList<Word>> text = PdfWords(file);
        QCOMPARE(text.size(), pages);
        QStringList codes, expected;
        for (int i = 0; i < pages; ++i) {
            QStringList words, footer;
            for (const Word& w : text[i]) (w.bottom > 842 - 72 - 21 ? footer : words) << w.text;
            QCOMPARE(footer, QStringList({QString::number(i + 1), "of", QString::number(pages)}));
            QVERIFY(words.contains("服装店数据报表"));
            QCOMPARE(words.contains("货号"), i == 0);
            codes << words.filter(QRegularExpression("^69\\d{6}$"));
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
        double right = 0;
        for (const Word& w : PdfWords(ExportPdf(p, dir, "wide.pdf")).value(0))
            if (w.text == "条码") right = w.right;
        QVERIFY(right > 0 && right <= 595 - 72 + 1);
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
        const QStringList said = Said(rec);
        QVERIFY(said.size() == 1 && said[0].startsWith("I:") &&
                said[0].contains(desktop.opened[1]));
    }
};
CS_TEST(TestPrint)

#include "tst_print.moc"
