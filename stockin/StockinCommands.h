#pragma once
// The stock-in windows behind the main window's commands.
void RegisterStockinCommands();
