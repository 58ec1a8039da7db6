#pragma once
// Every window of the system opens modally through Modal::Show, so that a
// test can drive it: the test queues its steps, and when the next window
// opens they run on it from inside its event loop (by a zero-time timer).
#include <QDialog>
#include <functional>

namespace Modal {

using Steps = std::function<void(QDialog*)>;

// Shows the window modally and returns when it closes (QDialog::exec).
int Show(QDialog* window);

// Tests: steps for the next window that opens, in order of opening.
void Queue(Steps steps);
// Tests: when set, a window that opens with no queued steps is handed here
// (and closed right after) instead of waiting for a person.
void SetUnplanned(std::function<void(QDialog*)> handler);
int QueuedCount();

}  // namespace Modal
