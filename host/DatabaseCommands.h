#pragma once

#include <optional>
#include <ostream>
#include <string>

#include "database/Sample.h"

namespace koru {

/// Makes a sample database file and reports how far it has come. Throws as CreateSample does.
void MakeSampleFile(const std::string& file, SampleSize size, std::ostream& report);

/// Makes the suite's tables, indexes, views and procedure in the empty database of a server, or an embedded
/// database file that is reached through ODBC, and fills them with a sample of that size, if any. Throws
/// InputError when the text names neither, or when something is there already: then nothing was written.
/// Throws the DatabaseError of the first statement that fails; what was made before it stays.
void MakeSuiteDatabase(const std::string& connectionText, std::optional<SampleSize> sample,
                       std::ostream& report);

/// Reports a line for each thing that the component needs from a database, and a last line that counts those
/// that are not as they must be. True when there is none.
[[nodiscard]] bool ReportCheck(const std::string& connectionText, std::ostream& report);

}  // namespace koru
