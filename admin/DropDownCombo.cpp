#include "DropDownCombo.h"

void DropDownCombo::showPopup() {
    Q_EMIT DropDown();
    QComboBox::showPopup();
}
