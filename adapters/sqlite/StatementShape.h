#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace koru {

/// The value of a literal of a statement. Whole numbers that fit 64 bits stay whole.
using Literal = std::variant<std::int64_t, double, std::string>;

/// A statement in the suite's server's dialect without its literals: two statements that differ in these
/// alone have the same text. In it a text literal is written `'?'`, a number `?`, comments are left out, and
/// one blank stands where there was any white space.
struct StatementShape {
  std::string text;
  std::vector<Literal> literals;  ///< from left to right
};

/// Reads a statement once, with the one lexer. Throws DatabaseError when a literal, bracket or comment is
/// never closed, when anything but blanks follows a `;`, or when the statement has parameters of its own.
[[nodiscard]] StatementShape ReadShape(const std::string& statement);

}  // namespace koru
