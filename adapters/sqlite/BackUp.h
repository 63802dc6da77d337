#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace koru {

/// Called with the progress in per cent, 0 to 100, never decreasing. False cancels the backup.
using BackupProgress = std::function<bool(int percent)>;

enum class BackupOutcome { Done, Cancelled };

/// Copies the database file `from` to `to` (both UTF-8). Programs may have `from` open, this one too, and may
/// write to it: the copy has the data of one moment, and keeps nobody waiting. The copy is made under a
/// working name and checked: it opens as a file of the suite, SQLite finds no damage in it, and it has
/// `tables`, which are tables or views. Then it replaces a file `to` that exists. When the backup is
/// cancelled or fails, that file stays as it was.
///
/// Throws InputError with a sentence that names `to`: it is the database itself, a program has it open, it
/// cannot be written, or the copy is not in order.
BackupOutcome BackUp(const std::string& from, const std::string& to,
                     const std::vector<std::string_view>& tables, const BackupProgress& progress);

}  // namespace koru
