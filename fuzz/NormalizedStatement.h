#pragma once

#include <string>
#include <utility>
#include <vector>

#include "adapters/sqlite/Dialect.h"
#include "adapters/sqlite/StatementShape.h"

namespace koru::fuzz {

/// The one place where the targets know how the embedded adapter calls a statement without its literals.
struct Normalized {
  std::string text;
  std::vector<Literal> literals;
};

/// Throws DatabaseError for what is no single statement.
inline Normalized NormalizeText(const std::string& statement) {
  StatementShape shape = ReadShape(statement);
  return {std::move(shape.text), std::move(shape.literals)};
}

/// The two translations of a normalized text; both throw DatabaseError for what cannot be translated.
inline void TranslateBoth(const std::string& text, SqliteConnection& connection) {
  static_cast<void>(TranslateShape(text, connection));
  static_cast<void>(TranslateOverKeys(text, connection));
}

}  // namespace koru::fuzz
