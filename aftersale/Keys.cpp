#include "Keys.h"

#include <QAbstractButton>

namespace {
class EnterClickFilter : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* o, QEvent* e) override {
        if (QKeyEvent* k = KeyPress(e); k && IsEnter(k)) {
            auto* b = static_cast<QAbstractButton*>(o);
            if (b->isEnabled()) b->click();
            return true;
        }
        return QObject::eventFilter(o, e);
    }
};
}  // namespace

void EnterClicks(QAbstractButton* button) {
    button->installEventFilter(new EnterClickFilter(button));
}
