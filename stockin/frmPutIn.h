#pragma once
// Stock sheet import: a supplier's order form read from a spreadsheet file.
// Each line of the sheet is an article in one colour, with its quantities in
// a block of size columns under a row of sizes; every size cell with a
// quantity becomes a goods row with its history row and its cost layer, all
// of them in one transaction, so that a sheet goes in whole or not at all.
#include <memory>

#include "Form.h"

namespace Ui {
class frmPutIn;
}
namespace Sheets {
class Sheet;
}

class frmPutIn : public Form {
    Q_OBJECT
public:
    explicit frmPutIn(QWidget* parent = nullptr);
    ~frmPutIn() override;

    Ui::frmPutIn* ui() { return ui_.get(); }

    // The kinds of file the file dialog offers.
    static QString FileFilter();

private:
    void cmdSelect_Click();
    void cmdPutIn_Click();
    // A cell of the open sheet; "" when no sheet is open.
    QString Cell(int row, int col) const;

    std::unique_ptr<Ui::frmPutIn> ui_;
    // The sheet chosen with cmdSelect, open until an import has gone through.
    std::unique_ptr<Sheets::Sheet> sheet_;
};
