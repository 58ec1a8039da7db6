#pragma once
// Connects a signal to a window's handler, run under Guard so that a
// run-time error inside it is shown and ends only that handler. The handler
// may take the signal's arguments or none.
#include <QObject>
#include <type_traits>

#include "Guard.h"

template <typename Sender, typename Signal, typename Handler>
QMetaObject::Connection On(Sender* sender, Signal signal, QObject* context, Handler handler) {
    return QObject::connect(sender, signal, context, [handler](auto&&... args) {
        Guard::Run([&] {
            if constexpr (std::is_invocable_v<const Handler&, decltype(args)...>)
                handler(std::forward<decltype(args)>(args)...);
            else
                handler();
        });
    });
}
