#pragma once
// A combo box that tells when its list is about to drop down, so that the
// window can refill it first.
#include <QComboBox>

class DropDownCombo : public QComboBox {
    Q_OBJECT
public:
    using QComboBox::QComboBox;
    void showPopup() override;

Q_SIGNALS:
    void DropDown();
};
