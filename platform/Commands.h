#pragma once
// The windows behind the main window's commands. Each subsystem registers the
// windows it has under the command's key (the menu item's name); a command
// without a registered window opens nothing.
#include <QString>
#include <functional>

class QWidget;

namespace Commands {

using Opener = std::function<void(QWidget* parent)>;

void Register(const QString& key, Opener open);
bool Has(const QString& key);
// Opens the command's window (modally, through the window itself); false when none.
bool Run(const QString& key, QWidget* parent);

}  // namespace Commands
