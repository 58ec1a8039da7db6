#pragma once
// Runs an event handler. A run-time error raised inside it (a failed
// conversion, an overflow, a read from a closed result) is shown in a box and
// ends the handler; what was already written stays written, and the program goes on.
#include <exception>

#include "MsgBox.h"
#include "RuntimeError.h"

namespace Guard {

template <typename F>
bool Run(F&& handler) {
    try {
        handler();
        return true;
    } catch (const RuntimeError& e) {
        MsgBox::Show(e.text(), MsgBox::Icon::Critical);
    } catch (const std::exception& e) {
        MsgBox::Show(QString::fromLocal8Bit(e.what()), MsgBox::Icon::Critical);
    }
    return false;
}

}  // namespace Guard
