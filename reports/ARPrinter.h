#pragma once
// The printed report of a grid: the title in the page header, one field per
// visible grid column in the detail band, "N of M" in the page footer.
//
// The report knows nothing of the data. Setting the grid lays out the detail
// fields from the grid's columns; running the report fetches the grid's rows
// one at a time, from row 0 (the column heads, printed once as the first
// detail line) to the last. Lengths of the layout are in twips (1440 to the
// inch), as the grid's column widths are; they are turned into the printer's
// units when the report runs.
#include <QHash>
#include <QPageLayout>
#include <QString>
#include <vector>

class QFont;
class QPainter;
class QPrinter;
class VSGrid;

class ARPrinter {
public:
    static constexpr int kTwipsPerInch = 1440;
    // Page margins on every side: one inch.
    static constexpr int kMargin = 1440;
    // The typeface of the fields.
    static const QString& FieldFont();

    enum Orientation { ddOPortrait = 1, ddOLandscape = 2 };

    // A label or a field of a band. A field shows the report field named by
    // DataField; a label shows its Caption.
    struct Control {
        QString Name;
        QString Tag;        // a detail field's grid column; "" for the others
        QString DataField;  // "" for a label
        QString Caption;
        int Left = 0;
        int Top = 0;
        int Width = 0;
        int Height = 0;
        int Alignment = 0;          // 0 left, 1 right, 2 centred
        int VerticalAlignment = 0;  // 0 top, 1 middle, 2 bottom
        QString FontName;
        double FontSize = 9;
        bool FontBold = false;
        bool BorderLeft = false;
        bool BorderTop = false;
        bool BorderRight = false;
        bool BorderBottom = false;
    };

    struct Section {
        int Height = 0;
        std::vector<Control> Controls;
    };

    // How the report falls onto the pages of a printer.
    struct PageGeometry {
        double scale = 1;     // below 1 when the report is wider than the paper
        int rowsPerPage = 1;  // detail lines on one page
        int pageCount = 1;
    };

    ARPrinter();

    bool IsSwag() const { return isSwag_; }
    void setIsSwag(bool on) { isSwag_ = on; }
    bool IsRecordIndex() const { return isRecordIndex_; }
    void setIsRecordIndex(bool on) { isRecordIndex_ = on; }

    // Lays out one detail field per column that is not hidden, from column 0
    // with IsRecordIndex, otherwise from column 1; IsSwag and IsRecordIndex
    // must be set before. The grid must outlive the report.
    void setGrid(VSGrid* grid);
    VSGrid* Grid() const { return grid_; }

    Section PageHeader;
    Section Detail;
    Section PageFooter;
    Control& lbInfo() { return PageHeader.Controls[0]; }
    const Control& lbInfo() const { return PageHeader.Controls[0]; }

    // The width of the detail line: the sum of the fields' widths.
    int PrintWidth = 0;
    int Orientation = ddOPortrait;

    // The report fields, by name, as the last fetch left them.
    QHash<QString, QString> Fields;

    // Fetches the next grid row into Fields; false when all rows are done.
    bool FetchData();
    // Starts the rows again from row 0.
    void Restart() { row_ = 0; }

    // Paper, orientation and margins of the report on a printer.
    void ApplyPageSettings(QPrinter* printer) const;
    PageGeometry Geometry(const QPrinter* printer) const;
    // Prints every page on the printer, which already has its page settings;
    // returns the number of pages. Throws RuntimeError when the printer
    // cannot be opened (a file that cannot be written, a printer gone).
    int Run(QPrinter* printer);

private:
    void paintPage(QPainter& p, const QFont& detailFont, double scale, int page, int pages,
                   int rowsPerPage, double dpi, double pageHeight);
    void drawControl(QPainter& p, const Control& c, const QString& text, double dpi, double top);

    VSGrid* grid_ = nullptr;
    int row_ = 0;
    bool isSwag_ = false;
    bool isRecordIndex_ = false;
};
