#pragma once
// Helpers of the print tests: a stock list built as the stock query shows
// it, the print window loaded with it, and PDF files and workbooks read back
// with the command-line tools of poppler-utils and unzip.
#include <QListWidget>
#include <QProcess>
#include <QTest>
#include <QTextStream>
#include <QXmlStreamReader>

#include "ARPrinter.h"
#include "ModMain.h"
#include "VSGrid.h"
#include "frmPrint.h"
#include "ui_frmPrint.h"

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

// The texts of a grid row, from column 0.
inline QStringList RowTexts(VSGrid* g, int row) {
    QStringList out;
    for (int c = 0; c < g->Cols(); ++c) out << g->TextMatrix(row, c);
    return out;
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

// The first sheet of a workbook: the text of each written cell by its
// reference ("B3"), and whether its format has thin borders on all four sides.
struct Sheet {
    QMap<QString, QString> text;
    QMap<QString, bool> bordered;
    QMap<QString, bool> isText;  // stored as a string, not a number
};

inline Sheet ReadSheet(const QString& file) {
    auto member = [&](const char* name) {
        return Tool("unzip", {"-p", file, QString::fromLatin1(name)});
    };
    QStringList strings;
    QXmlStreamReader ss(member("xl/sharedStrings.xml"));
    while (!ss.atEnd()) {
        ss.readNext();
        if (ss.isStartElement() && ss.name() == u"si")
            strings << ss.readElementText(QXmlStreamReader::IncludeChildElements);
    }

    // Formats: which borders are thin on every side, which formats use them.
    QList<bool> thinBorder;
    QList<bool> xfBordered;
    QXmlStreamReader st(member("xl/styles.xml"));
    bool inXfs = false;
    int thinSides = 0;
    while (!st.atEnd()) {
        st.readNext();
        if (st.isStartElement()) {
            if (st.name() == u"border") thinSides = 0;
            if ((st.name() == u"left" || st.name() == u"right" || st.name() == u"top" ||
                 st.name() == u"bottom") &&
                st.attributes().value("style") == u"thin")
                ++thinSides;
            if (st.name() == u"cellXfs") inXfs = true;
            if (inXfs && st.name() == u"xf")
                xfBordered << thinBorder.value(st.attributes().value("borderId").toInt());
        } else if (st.isEndElement()) {
            if (st.name() == u"border") thinBorder << (thinSides == 4);
            if (st.name() == u"cellXfs") inXfs = false;
        }
    }

    Sheet sheet;
    QXmlStreamReader sx(member("xl/worksheets/sheet1.xml"));
    QString ref;
    while (!sx.atEnd()) {
        sx.readNext();
        if (!sx.isStartElement()) continue;
        if (sx.name() == u"c") {
            ref = sx.attributes().value("r").toString();
            sheet.bordered[ref] = xfBordered.value(sx.attributes().value("s").toInt());
            sheet.isText[ref] = sx.attributes().value("t") == u"s";
            sheet.text[ref] = QString();
        } else if (sx.name() == u"v") {
            const QString v = sx.readElementText();
            sheet.text[ref] = sheet.isText[ref] ? strings.value(v.toInt()) : v;
        }
    }
    return sheet;
}

// "A".."Z" for sheet columns 1..26.
inline QString Ref(int sheetCol, int sheetRow) {
    return QChar('A' + sheetCol - 1) + QString::number(sheetRow);
}
