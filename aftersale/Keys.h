#pragma once
// Keys shared by the after-sale windows, which are worked from the keyboard
// at the counter.
#include <QKeyEvent>

class QAbstractButton;
class QWidget;

inline bool IsEnter(const QKeyEvent* k) {
    return k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter;
}

// Enter on the button, while it has the focus, presses it, as Space does.
void EnterClicks(QAbstractButton* button);

// The key event when the event is a key press, otherwise nullptr.
inline QKeyEvent* KeyPress(QEvent* e) {
    return e->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(e) : nullptr;
}
