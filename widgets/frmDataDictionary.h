#pragma once
// One lookup list of the DataDictionary table (colours, sizes, reasons, ...).
#include <memory>

#include "Form.h"

class QAbstractButton;
class QComboBox;

namespace Ui {
class frmDataDictionary;
}

class frmDataDictionary : public Form {
    Q_OBJECT
public:
    explicit frmDataDictionary(QWidget* parent = nullptr);
    ~frmDataDictionary() override;

    // Takes the list's Item, fills the list and sets the caption.
    void LoadIt(const QString& Item);
    QString Item() const { return item_; }

    // Opens the window on a list modally (the "…" buttons beside the combo boxes).
    static void ShowFor(const QString& Item, QWidget* parent);
    // Makes a small "…" button beside a combo box open the list and fill the
    // combo again when the list window closes.
    static void AttachButton(QAbstractButton* button, const QString& Item, QComboBox* combo,
                             QWidget* owner);

    Ui::frmDataDictionary* ui() { return ui_.get(); }

private:
    void cmdAdd_Click();
    void cmdDel_Click();

    std::unique_ptr<Ui::frmDataDictionary> ui_;
    QString item_;
};
