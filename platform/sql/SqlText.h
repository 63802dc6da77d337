#pragma once

#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "platform/text/Date.h"

namespace koru {

/// A text from the user, or from a text column of the database, that is to be part of a statement.
struct Typed {
  explicit Typed(std::string_view typed) : text(typed) {}
  std::string_view text;
};

/// Keys, counts and other integers. Excludes flags and characters, which statements write in other ways.
template <class T>
concept WholeNumber = std::integral<T> && !std::same_as<T, bool> && !std::same_as<T, char>;

/// SQL text from the program's source. It converts from constants only (consteval), so no text that is known
/// only at run time can pass for program text.
struct FixedSql {
  consteval FixedSql(const char* constant) : text(constant) {}  // NOLINT(google-explicit-constructor)
  std::string_view text;
};

/// The name of a table or column that the program keeps in a property. Throws std::invalid_argument when it
/// contains anything but ASCII letters, digits and underscores.
struct SqlName {
  explicit SqlName(std::string_view name);
  std::string_view text;
};

/// An SQL statement built by concatenation that records which parts were typed. Only program text, names,
/// numbers, dates and typed text can be appended. Typed text is enclosed in apostrophes, unchanged (or with
/// apostrophes doubled by FixQuote where the statement's rule says so), and its span is recorded. Before the
/// statement is sent, CheckTypedSpans proves that typed text is only the content of its literal.
class SqlText {
 public:
  /// Byte offsets into Text(); `end` is exclusive.
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
  requires(!std::is_array_v<T>)  // a string constant is a FixedSql
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

/// Throws DatabaseError (kBrokenStatement) unless every typed span is inside one string literal that begins
/// and ends outside of the span: no apostrophe of the span may end the literal or pair with an apostrophe
/// outside of the span.
void CheckTypedSpans(const SqlText& sql);

}  // namespace koru
