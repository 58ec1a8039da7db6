#pragma once
// The shops of the data file, each under its name; the default shop's name
// can be changed from here.
#include <memory>

#include "Form.h"

namespace Ui {
class frmChangeShop;
}
class QListWidgetItem;

class frmChangeShop : public Form {
    Q_OBJECT
public:
    explicit frmChangeShop(QWidget* parent = nullptr);
    ~frmChangeShop() override;

    Ui::frmChangeShop* ui() { return ui_.get(); }

    // The list of shops, each item keyed by the shop's GUID.
    QListWidgetItem* Item(const QString& key) const;
    static QString ItemKey(const QListWidgetItem* item);
    QListWidgetItem* AddItem(const QString& key, const QString& text);

private:
    void cmdEdit_Click();
    std::unique_ptr<Ui::frmChangeShop> ui_;
};
