#pragma once

#include <filesystem>

namespace koru {

/// The folder of the files that are installed with the running program: `reports` and `manual`. It moves with
/// the program, so no prefix is built in; see DataFolderOf.
[[nodiscard]] std::filesystem::path DataFolder();

/// The data folder of the program file `program`: `share/koru-counting` beside the file (in a build tree) if
/// that exists, otherwise below the parent of the file's folder (`<prefix>/bin/koru-counting` has
/// `<prefix>/share/koru-counting`), whether that exists or not.
[[nodiscard]] std::filesystem::path DataFolderOf(const std::filesystem::path& program);

}  // namespace koru
