#pragma once

#include <string>

namespace koru {

/// Opens the host screen and returns the exit code when it is closed. `connection` is the connection text to
/// work with; empty: the one used last, and at the first start the user chooses one. Throws InputError or
/// DatabaseError when the settings or a database named on the command line cannot be used.
[[nodiscard]] int RunHostScreen(const std::string& connection, int& argc, char** argv);

}  // namespace koru
