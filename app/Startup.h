#pragma once
// From the program's entry to the main window.
namespace Startup {
// Creates the shared objects, opens the data file and takes a login. Returns
// true when the main window is open (the caller then runs the event loop);
// false when the data file could not be opened or the login was left.
bool Main();
}  // namespace Startup
