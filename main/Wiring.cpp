#include "Wiring.h"

// Each subsystem that has windows for the main window's commands offers a
// Register...Commands function in a header of that name.
#if __has_include("AdminCommands.h")
#include "AdminCommands.h"
#define CS_ADMIN_COMMANDS RegisterAdminCommands();
#else
#define CS_ADMIN_COMMANDS
#endif
#if __has_include("StockinCommands.h")
#include "StockinCommands.h"
#define CS_STOCKIN_COMMANDS RegisterStockinCommands();
#else
#define CS_STOCKIN_COMMANDS
#endif
#if __has_include("SalesCommands.h")
#include "SalesCommands.h"
#define CS_SALES_COMMANDS RegisterSalesCommands();
#else
#define CS_SALES_COMMANDS
#endif

#if __has_include("AftersaleCommands.h")
#include "AftersaleCommands.h"
#define CS_AFTERSALE_COMMANDS RegisterAftersaleCommands();
#else
#define CS_AFTERSALE_COMMANDS
#endif
#if __has_include("ReportsCommands.h")
#include "ReportsCommands.h"
#define CS_REPORTS_COMMANDS RegisterReportsCommands();
#else
#define CS_REPORTS_COMMANDS
#endif

void RegisterAllWindows() {
    CS_ADMIN_COMMANDS
    CS_STOCKIN_COMMANDS
    CS_SALES_COMMANDS
    CS_AFTERSALE_COMMANDS
    CS_REPORTS_COMMANDS
}
