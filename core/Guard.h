#pragma once
// Runs an event handler as one user action (see UserAction.h): its writes
// share one transaction, committed when it ends. A run-time error raised
// inside it (a failed conversion, an overflow, a read from a closed result)
// ends the handler and is shown in a box; what was already written stays
// written, and the program goes on.
#include <exception>

#include "MsgBox.h"
#include "RuntimeError.h"
#include "UserAction.h"

namespace Guard {

template <typename F>
bool Run(F&& handler) {
    UserAction action;
    try {
        handler();
        return true;
    } catch (const RuntimeError& e) {
        action.End();
        MsgBox::Show(e.text(), MsgBox::Icon::Critical);
    } catch (const std::exception& e) {
        action.End();
        MsgBox::Show(QString::fromLocal8Bit(e.what()), MsgBox::Icon::Critical);
    }
    return false;
}

}  // namespace Guard
