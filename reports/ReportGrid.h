#pragma once
// What the report windows do alike with their grids: the red, bold sum rows
// shown as whole numbers, and handing a grid to the print window.
#include <QString>

class QWidget;
class VSGrid;

// Adds sum rows of the column totalOn, grouped on the column groupOn (0: one
// total over all rows), with the caption; above puts each sum row in front
// of the rows it adds up.
void AddSums(VSGrid* grid, int groupOn, int totalOn, const QString& caption, bool above = false);

// The print button of the stock and sales queries: hands the grid, its total
// row counted at row 1, to the print window, which works on a copy.
void PrintGrid(VSGrid* grid, QWidget* parent);
