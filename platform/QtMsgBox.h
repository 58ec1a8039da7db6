#pragma once
// Shows the boxes of the message-box service as real message boxes.
namespace QtMsgBox {
// Installs the presenter. A question's default button is Yes, so Enter answers Yes.
void Install();
}  // namespace QtMsgBox
