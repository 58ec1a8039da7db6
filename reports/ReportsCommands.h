#pragma once
// The report and settlement windows behind the main window's commands.
void RegisterReportsCommands();
