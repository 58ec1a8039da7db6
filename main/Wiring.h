#pragma once
// Registers every subsystem's windows under the main window's commands.
void RegisterAllWindows();
