#pragma once
// The sales counter's windows behind the main window's commands.
void RegisterSalesCommands();
