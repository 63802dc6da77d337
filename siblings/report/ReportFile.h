#pragma once

#include <filesystem>
#include <string>

namespace koru {

/// The text of the report file `name` (UTF-8 path), which ReportPrinter::SetReportFileName has passed.
///
/// `dataFolder` is the program's own folder. A relative name, which a suite without a base folder passes, is
/// relative to it. For a file that does not exist there, and for no other, the report of that name that is
/// built into the program is the text.
///
/// Throws InputError, in one sentence with the name, if the file does not exist or cannot be read; if its
/// folder does not exist, the sentence names the outermost missing folder.
[[nodiscard]] std::string ReadReportFile(const std::string& name, const std::filesystem::path& dataFolder);

}  // namespace koru
