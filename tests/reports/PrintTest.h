#pragma once
// Helpers of the print tests: a stock list built as the stock query shows
// it, the print window loaded with it, and PDF files and workbooks read back
// with poppler-utils and unzip.
#include <QListWidget>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

#include "ARPrinter.h"
#include "ModMain.h"
#include "ReportData.h"

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

// The text of the pages of a PDF file, one entry per page.
inline QStringList PdfPages(const QString& file) {
    QStringList pages = Tool("pdftotext", {"-layout", file, "-"}).split(QChar('\f'));
    if (!pages.isEmpty() && pages.last().trimmed().isEmpty()) pages.removeLast();
    return pages;
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
