#pragma once
// The administration windows behind the main window's commands: users
// (UserManage), shops (ChangeShop) and backup settings (BackUpDate).
void RegisterAdminCommands();
