#pragma once

#include <string>

#include "adapters/sqlite/Dialect.h"
#include "adapters/sqlite/NormalizedStatement.h"

namespace koru::fuzz {

/// The two translations of a normalized text; both throw DatabaseError for what cannot be translated.
inline void TranslateBoth(const std::string& text, SqliteConnection& connection) {
  static_cast<void>(TranslateOrdered(text, connection));
  static_cast<void>(TranslateHoisted(text, connection));
}

}  // namespace koru::fuzz
