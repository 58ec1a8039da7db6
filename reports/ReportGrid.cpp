#include "ReportGrid.h"

#include <QColor>

#include "VSGrid.h"

void AddSums(VSGrid* grid, int groupOn, int totalOn, const QString& caption, bool above) {
    grid->Subtotal(VSGrid::SubtotalSum, groupOn, totalOn, QStringLiteral("d"), QColor(255, 0, 0),
                   true, caption, above);
}

void PrintGrid(VSGrid* grid, QWidget* parent) {
    // The print window is not part of the program yet, so the button opens
    // nothing. Once it is, this is the one place to change:
    //     frmPrint f(parent);
    //     f.LoadIt(grid, true);
    //     Modal::Show(&f);
    Q_UNUSED(grid);
    Q_UNUSED(parent);
}
