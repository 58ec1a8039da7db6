#pragma once
// The shared routines of the windows.
#include <QString>

#include "SqlText.h"

class QComboBox;
class QLineEdit;
class QWidget;
class VSGrid;

// Column layout of a grid: visible columns centred, column 0 at 200 twips,
// every other column (hidden ones too) at the given width.
void SetGridCols(VSGrid* Vs, float width);

// Fills a combo box from a dictionary list, in the order the database returns.
// Entry 0 is selected when there is one.
void FillCombo(const QString& Item, QComboBox* combo);
// The same, with "全部" (all) in front.
void FillComboAll(const QString& Item, QComboBox* combo);

// Removes every row below the header.
void RemoveVsRows(VSGrid* grid);

// Makes Enter in these controls move the focus on, as Tab does.
void EnterToTab(QWidget* control);
// Sends a Tab to the window of the control (the focus moves to the next control).
void SendTab(QWidget* from);

// Digits-only entry on or off.
void SetNumberOnly(QLineEdit* box, bool on);
