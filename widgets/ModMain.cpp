#include "ModMain.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpressionValidator>

#include "Convert.h"
#include "Session.h"
#include "VSGrid.h"

void SetGridCols(VSGrid* Vs, float width) {
    for (int c = 0; c < Vs->Cols(); ++c) {
        if (!Vs->ColHidden(c)) Vs->setColAlignment(c, VSGrid::AlignCenterCenter);
        Vs->setColWidth(c, c == 0 ? 200 : int(Convert::RoundHalfEven(width)));
    }
}

namespace {
void fill(const QString& Item, QComboBox* combo, bool all) {
    combo->clear();
    if (all) combo->addItem(QStringLiteral("全部"));
    // The flag is not looked at: a failed read raises its error at the first read.
    Recordset rs =
        Session::Dbopt().Excute("select Content from Datadictionary Where item='" + Item + "'");
    if (rs.Eof()) {
        combo->setCurrentIndex(-1);
        if (!combo->isEditable()) return;
        combo->setEditText(QString());
        return;
    }
    QStringList items;
    for (; !rs.Eof(); rs.MoveNext()) items << rs.Text(0);
    combo->addItems(items);
    combo->setCurrentIndex(0);
}

// Moves the focus on when Enter is pressed in the control.
class EnterFilter : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* o, QEvent* e) override {
        if (e->type() == QEvent::KeyPress) {
            auto* k = static_cast<QKeyEvent*>(e);
            if (k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter) {
                if (auto* w = qobject_cast<QWidget*>(o)) SendTab(w);
                return true;
            }
        }
        return QObject::eventFilter(o, e);
    }
};
}  // namespace

void FillCombo(const QString& Item, QComboBox* combo) {
    fill(Item, combo, false);
}
void FillComboAll(const QString& Item, QComboBox* combo) {
    fill(Item, combo, true);
}

void RemoveVsRows(VSGrid* grid) {
    for (int r = grid->Rows() - 1; r >= 1; --r) grid->RemoveItem(r);
}

void SendTab(QWidget* from) {
    QWidget* w = from;
    // An editable combo's line edit passes the Tab to the combo.
    if (auto* p = from->parentWidget(); p && qobject_cast<QComboBox*>(p)) w = p;
    QWidget* next = w->nextInFocusChain();
    while (next && next != w &&
           (!(next->focusPolicy() & Qt::TabFocus) || !next->isEnabled() || !next->isVisible() ||
            w->isAncestorOf(next)))
        next = next->nextInFocusChain();
    if (next && next != w) next->setFocus(Qt::TabFocusReason);
}

void EnterToTab(QWidget* control) {
    control->installEventFilter(new EnterFilter(control));
    if (auto* cb = qobject_cast<QComboBox*>(control); cb && cb->lineEdit())
        cb->lineEdit()->installEventFilter(new EnterFilter(cb->lineEdit()));
}

void SetNumberOnly(QLineEdit* box, bool on) {
    if (on) {
        box->setValidator(
            new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), box));
    } else {
        box->setValidator(nullptr);
    }
}
