#pragma once

#include <string>

namespace koru {

/// Makes a database file without stores, goods and documents. It has one user, who may do everything, and the
/// reports of a counting, so that the program works on it at once. Throws InputError if the file exists,
/// without changing it, or cannot be made; DatabaseError for other failures, after which no file remains.
void MakeEmptyDatabase(const std::string& path);

}  // namespace koru
