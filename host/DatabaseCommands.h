#pragma once

#include <optional>
#include <ostream>
#include <string>

#include "database/Sample.h"

namespace koru {

/// Removes what a killed creation of that database file left beside it: the files `<file>.new-<digits>` and
/// those with `-journal`, `-wal` or `-shm` appended, unless a program is using them. A file that cannot be
/// removed stays.
void RemoveLeftovers(const std::string& file);

/// Makes a sample database file and reports the progress, after RemoveLeftovers. Throws what
/// CreateSample throws.
void MakeSampleFile(const std::string& file, SampleSize size, std::ostream& report);

/// Makes the suite's tables, indexes, views and procedure in the empty database of a server, and fills them
/// with a sample of that size, if any. Throws InputError for a connection text of another kind, or when one
/// of these objects exists: then nothing was written. Throws the DatabaseError of the first statement that
/// fails; what was made before it remains.
void MakeSuiteDatabase(const std::string& connectionText, std::optional<SampleSize> sample,
                       std::ostream& report);

/// Reports one line for each requirement of the component on a database, and a last line that counts those
/// that are not met. True when all are met.
[[nodiscard]] bool ReportCheck(const std::string& connectionText, std::ostream& report);

}  // namespace koru
