#include "Modal.h"

#include <QList>
#include <QPointer>
#include <QTimer>

#include "UserAction.h"

namespace Modal {

namespace {
QList<Steps>& queue() {
    static QList<Steps> q;
    return q;
}
std::function<void(QDialog*)>& unplanned() {
    static std::function<void(QDialog*)> h;
    return h;
}
}  // namespace

void Queue(Steps steps) {
    queue() << std::move(steps);
}
void SetUnplanned(std::function<void(QDialog*)> handler) {
    unplanned() = std::move(handler);
}
int QueuedCount() {
    return int(queue().size());
}

int Show(QDialog* window) {
    UserAction::BeforeWaiting();
    window->setWindowModality(Qt::ApplicationModal);
    if (!queue().isEmpty()) {
        Steps steps = queue().takeFirst();
        QPointer<QDialog> w(window);
        QTimer::singleShot(0, window, [w, steps] {
            if (w) steps(w);
        });
    } else if (unplanned()) {
        QPointer<QDialog> w(window);
        auto handler = unplanned();
        QTimer::singleShot(0, window, [w, handler] {
            if (!w) return;
            handler(w);
            if (w) w->reject();
        });
    }
    return window->exec();
}

}  // namespace Modal
