#include "ReportGrid.h"

#include <QColor>

#include "VSGrid.h"
#include "frmPrint.h"

void AddSums(VSGrid* grid, int groupOn, int totalOn, const QString& caption, bool above) {
    grid->Subtotal(VSGrid::SubtotalSum, groupOn, totalOn, QStringLiteral("d"), QColor(255, 0, 0),
                   true, caption, above);
}

void PrintGrid(VSGrid* grid, QWidget* parent) {
    frmPrint::Open(grid, true, parent);
}
