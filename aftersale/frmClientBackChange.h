#pragma once
// A customer swaps sold pieces for other goods. Each old line found above is
// paired with a replacement chosen in the picker (frmChange) below; one
// confirmation carries out every pending pair: the old goods are kept in
// SellChange, go back to stock and to their cost layer, and the sale line is
// rewritten in place with the replacement, which is taken from stock and
// from a cost layer. The money labels show what the customer adds or gets
// back; they add up across pairs and are never reset.
//
// A pair is held by two marks only: the old row's fixed cell is red, and the
// replacement row carries the old line's GUID under the key SellGUID.
#include <QColor>
#include <memory>

#include "Form.h"

namespace Ui {
class frmClientBackChange;
}
class QAction;
class QMenu;
class VSGrid;

class frmClientBackChange : public Form {
    Q_OBJECT
public:
    explicit frmClientBackChange(QWidget* parent = nullptr);
    ~frmClientBackChange() override;

    Ui::frmClientBackChange* ui() { return ui_.get(); }
    QMenu* PopupMenu() const { return Main_; }

    // The colour of an old row's fixed cell while it is paired.
    static QColor MarkColor() { return QColor(255, 0, 0); }
    bool IsMarked(int row) const;

    // Removes the selected pair (popup item Del).
    void RemoveChangeRow();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void InitSellGrid();
    void InitChangeGrid();
    void cmdQuery_Click();
    void cmdChange_Click();
    void cmdOk_Click();
    float AmountDifference(const QString& GUID) const;
    void InsertSellChanges();
    void MoveStock();
    void RestoreCostLayers();
    void RewriteSell();
    void RemoveChangedRows();
    static void RemoveVsRowsAll(VSGrid* Vs);

    std::unique_ptr<Ui::frmClientBackChange> ui_;
    QMenu* Main_ = nullptr;
    QAction* Del_ = nullptr;
};
