#pragma once
// The after-sale windows behind the main window's commands.
void RegisterAftersaleCommands();
