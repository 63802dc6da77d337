#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace koru {

/// The value of a literal. An integer that fits 64 bits is an integer, any other number a double.
using Literal = std::variant<std::int64_t, double, std::string>;

/// A statement in the suite's server's dialect without its literals: statements that differ only in literals
/// have the same text, which is the key of the statement cache. A text literal is written `'?'`, a number
/// `?`; comments are removed, and any white space becomes one blank.
struct NormalizedStatement {
  std::string text;
  std::vector<Literal> literals;  ///< from left to right
};

/// The beginning of a statement, up to a `(` that its first literal follows, and what Normalize makes of it.
/// No character after a `(` changes how those before it are read. Both are empty where the literal follows
/// something else.
struct StatementLead {
  std::string text;
  std::string normalized;
};

/// Reads a statement in one pass of the lexer. Throws DatabaseError if a literal, bracket or comment is not
/// closed, if anything but white space follows a `;`, or if the statement has parameters of its own.
[[nodiscard]] NormalizedStatement Normalize(const std::string& statement);
/// The same where `lead` is that of an earlier statement, or empty: a statement that begins with it is read
/// from there on. If the statement has another lead, it is put into `lead`.
[[nodiscard]] NormalizedStatement Normalize(const std::string& statement, StatementLead& lead);

}  // namespace koru
