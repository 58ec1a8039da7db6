#include "MsgBox.h"

#include "UserAction.h"

namespace MsgBox {

namespace {
Presenter& presenter() {
    static Presenter p;
    return p;
}
}  // namespace

Presenter SetPresenter(Presenter p) {
    Presenter old = std::move(presenter());
    presenter() = std::move(p);
    return old;
}

QString AppTitle() {
    return QStringLiteral("服装店进销存管理系统");
}

Answer Show(const QString& text, Icon icon, Buttons buttons, const QString& title) {
    Box box{text, icon, buttons, title.isEmpty() ? AppTitle() : title};
    UserAction::BeforeWaiting();
    if (presenter()) return presenter()(box);
    // No presenter (a tool without windows): the first button.
    return buttons == Buttons::YesNo || buttons == Buttons::YesNoCancel ? Answer::Yes : Answer::Ok;
}

}  // namespace MsgBox
