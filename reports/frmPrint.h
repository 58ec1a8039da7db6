#pragma once
// The print window: a copy of a list window's grid, the columns to print,
// a title and options, a preview of the report made from the copy, printing,
// PDF, and the copy as a spreadsheet workbook.
#include <QString>
#include <cstdint>
#include <memory>

#include "Form.h"

namespace Ui {
class frmPrint;
}
class ARPrinter;
class QListWidgetItem;
class VSGrid;

class frmPrint : public Form {
    Q_OBJECT
public:
    explicit frmPrint(QWidget* parent = nullptr);
    ~frmPrint() override;

    Ui::frmPrint* ui() { return ui_.get(); }

    // Opens the window on a copy of the grid, modally; the list windows'
    // print buttons call this. HasTotal: row 1 of the grid is a total row.
    static void Open(VSGrid* Grid, bool HasTotal, QWidget* parent);

    // Takes a copy of the grid (texts, hidden columns, widths, header row)
    // and lists its visible columns for choosing.
    void LoadIt(VSGrid* Grid, bool HasTotal);

    // Row 1 of the window's grid is at this moment a total row.
    bool HasTotal = false;
    // The caller's grid had a total row at all.
    bool CanTotal = false;
    // The first grid row that the numbering counts: 0 until chkisTotal is
    // clicked, so that until then the header row is counted as record 1.
    int16_t FirstRecordRow = 0;
    // The total row taken out by unticking chkisTotal, tab-separated from column 0.
    QString TotalRowText;
    // The report of the last preview.
    std::shared_ptr<ARPrinter> Report;

private:
    void listField_ItemCheck(QListWidgetItem* item);
    void comAutoSize_Click();
    void chkIsTableHead_Click();
    void chkisTotal_Click();
    void NumberRows();
    void cmdPreview_Click();
    void cmdExcel_Click();
    void cmdPdf_Click();

    std::unique_ptr<Ui::frmPrint> ui_;
};
