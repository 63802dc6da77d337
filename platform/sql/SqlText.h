#pragma once

#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "platform/text/Date.h"

namespace koru {

/// A text that somebody typed, or that came out of the database as text, on its way into a statement.
struct Typed {
  explicit Typed(std::string_view typed) : text(typed) {}
  std::string_view text;
};

/// Keys, counts and other whole numbers; not flags and characters, which a statement writes in ways of its
/// own.
template <class T>
concept WholeNumber = std::integral<T> && !std::same_as<T, bool> && !std::same_as<T, char>;

/// Text that stands in the program's source: it converts from constants alone, so that nothing which is known
/// only at run time can pass for the program's own words.
struct FixedSql {
  consteval FixedSql(const char* constant) : text(constant) {}  // NOLINT(google-explicit-constructor)
  std::string_view text;
};

/// The name of a table or column that the program keeps in a property. Throws std::invalid_argument for
/// anything but ASCII letters, digits and underscores.
struct SqlName {
  explicit SqlName(std::string_view name);
  std::string_view text;
};

/// The text of an SQL statement, built by concatenation, that remembers which parts of it were typed. Only
/// these can be appended: text that stands in the program's source, names, numbers, dates, and typed text.
/// Typed text is written between the apostrophes of a string literal exactly as it was typed (or doubled by
/// FixQuote, where the statement's rule says so) and its span is kept; CheckTypedSpans then proves before the
/// statement is sent that the person's text cannot have become anything but the content of that literal.
class SqlText {
 public:
  /// Offsets in bytes into Text(); `end` is one past the last.
  struct Span {
    std::size_t begin = 0;
    std::size_t end = 0;
  };

  SqlText() = default;
  explicit SqlText(FixedSql fixed) : text_(fixed.text) {}

  SqlText& operator+=(FixedSql fixed) {
    text_ += fixed.text;
    return *this;
  }
  SqlText& operator+=(WholeNumber auto number) {
    text_ += std::to_string(number);
    return *this;
  }
  /// The number's default text (NumberText).
  SqlText& operator+=(double number);
  /// `yyyy-mm-dd`, without apostrophes.
  SqlText& operator+=(Date date);
  SqlText& operator+=(SqlName name) {
    text_ += name.text;
    return *this;
  }
  SqlText& operator+=(Typed typed);
  SqlText& operator+=(const SqlText& other);

  friend SqlText operator+(SqlText left, FixedSql right) {
    left += right;
    return left;
  }
  template <class T>
  requires(!std::is_array_v<T>)  // a constant text is a FixedSql
      friend SqlText
      operator+(SqlText left, const T& right) {
    left += right;
    return left;
  }

  [[nodiscard]] const std::string& Text() const { return text_; }
  [[nodiscard]] const std::vector<Span>& TypedSpans() const { return typed_; }
  [[nodiscard]] bool Empty() const { return text_.empty(); }

 private:
  std::string text_;
  std::vector<Span> typed_;
};

/// Throws the DatabaseError of a broken statement, naming nothing of what was typed but the statement itself,
/// unless each typed span lies inside one string literal that begins and ends outside of it, so that no
/// apostrophe of the span ends the literal or takes part in a doubling with one outside of the span.
void CheckTypedSpans(const SqlText& sql);

}  // namespace koru
