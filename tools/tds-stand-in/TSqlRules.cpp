#include "tools/tds-stand-in/TSqlRules.h"

#include <algorithm>
#include <charconv>
#include <set>
#include <string_view>

#include "platform/sql/SqlLexer.h"
#include "platform/text/Text.h"

namespace koru::test {
namespace {

struct Token {
  SqlTokenKind kind;
  std::string text;  ///< words and symbols in lower case
};

bool IsBeyondAscii(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) { return (c & 0x80) != 0; });
}

class Batch {
 public:
  explicit Batch(const std::string& text) {
    SqlLexer lexer(text);
    for (SqlToken token = lexer.Next(); token.kind != SqlTokenKind::End; token = lexer.Next()) {
      if (token.kind == SqlTokenKind::Comment) continue;
      const bool isLiteral = token.kind == SqlTokenKind::String || token.kind == SqlTokenKind::NationalString;
      const std::string_view read = lexer.TextOf(token);
      tokens_.push_back({token.kind, isLiteral ? std::string(read) : LowerAscii(read)});
    }
  }

  std::vector<std::string> Findings() {
    if (tokens_.empty()) Found("an empty batch");
    CheckTokens();
    CheckForeignWords();
    CheckCreation();
    CheckRows();
    CheckIdentityInsert();
    CheckComparedValues();
    if (Is(0, "create") && Is(1, "table")) CheckTable();
    return findings_;
  }

 private:
  void Found(const std::string& what) { findings_.push_back(what); }

  [[nodiscard]] bool Is(std::size_t at, std::string_view text) const {
    return at < tokens_.size() && tokens_[at].text == text;
  }
  [[nodiscard]] std::size_t Count(std::string_view text) const {
    return static_cast<std::size_t>(std::count_if(tokens_.begin(), tokens_.end(),
                                                  [&](const Token& token) { return token.text == text; }));
  }
  /// The place after the parenthesis that closes the one at `at`.
  [[nodiscard]] std::size_t EndOf(std::size_t at) const {
    int depth = 0;
    for (; at < tokens_.size(); ++at) {
      if (Is(at, "(")) ++depth;
      if (Is(at, ")") && --depth == 0) return at + 1;
    }
    return at;
  }

  void CheckTokens() {
    int depth = 0;
    for (const Token& token : tokens_) {
      if (token.kind == SqlTokenKind::Broken) Found("never closed: " + token.text);
      const bool mayHoldAll = token.kind == SqlTokenKind::NationalString ||
                              (token.kind == SqlTokenKind::Word && token.text.front() == '[');
      if (!mayHoldAll && IsBeyondAscii(token.text)) Found("not national: " + token.text);
      if (token.text == "(") ++depth;
      if (token.text == ")" && --depth < 0) Found("a parenthesis that closes nothing");
    }
    if (depth > 0) Found("a parenthesis that is never closed");
    const auto semicolon =
        std::find_if(tokens_.begin(), tokens_.end(), [](const Token& token) { return token.text == ";"; });
    if (semicolon != tokens_.end() && semicolon + 1 != tokens_.end()) Found("more than one statement");
    if (Count("go") > 0) Found("GO inside a batch");
  }

  void CheckForeignWords() {
    static const std::set<std::string> kForeign{
        "autoincrement", "limit",   "ifnull",       "glob",   "pragma", "rowid",  "strict",
        "printf",        "||",      "==",           "`",      "true",   "false",  "text",
        "real",          "integer", "boolean",      "offset", "serial", "regexp", "vacuum",
        "attach",        "without", "group_concat", "ilike",  "now"};
    for (std::size_t at = 0; at < tokens_.size(); ++at) {
      const Token& token = tokens_[at];
      if (token.kind == SqlTokenKind::String || token.kind == SqlTokenKind::NationalString) continue;
      if (kForeign.contains(token.text)) Found("not the server's: " + token.text);
      if (Is(at, "|") && Is(at + 1, "|")) Found("not the server's: ||");
      if (Is(at, "if") && Is(at + 1, "not") && Is(at + 2, "exists")) Found("not the server's: if not exists");
      if (Is(at, "insert") && Is(at + 1, "or")) Found("not the server's: insert or");
      if (Is(at, "current_date")) Found("not the server's: current_date");
    }
  }

  void CheckCreation() {
    const bool isModule = Is(1, "view") || Is(1, "procedure");
    if (Count("create") > 0 && !Is(0, "create")) Found("a creation that does not begin its batch");
    if (Count("create") > 1) Found("more than one creation in a batch");
    if (!isModule) return;
    if (!Is(3, "as") && Is(1, "view")) Found("a view without as");
    if (Is(1, "view") && Count("order") > 0 && Count("top") == 0) Found("a view that is sorted without top");
    if (Is(1, "procedure") && Count("begin") != Count("end")) Found("begin and end do not pair");
  }

  void CheckRows() {
    constexpr std::size_t kMaxRows = 1000;
    for (std::size_t at = 0; at < tokens_.size(); ++at) {
      if (!Is(at, "values")) continue;
      std::set<std::size_t> lengths;
      std::size_t rows = 0;
      for (std::size_t row = at + 1; Is(row, "("); ++rows) {
        const std::size_t end = EndOf(row);
        lengths.insert(Length(row, end));
        row = Is(end, ",") ? end + 1 : end;
      }
      if (rows == 0) Found("values without rows");
      if (rows > kMaxRows) Found("more than 1000 rows in values");
      if (lengths.size() > 1) Found("rows of different lengths");
      if (at > 0 && Is(at - 1, ")") && lengths.size() == 1 && *lengths.begin() != ColumnsBefore(at)) {
        Found("not as many values as columns");
      }
    }
  }

  /// The number of parts between the parentheses that commas separate.
  [[nodiscard]] std::size_t Length(std::size_t open, std::size_t end) const {
    int depth = 0;
    std::size_t commas = 0;
    for (std::size_t at = open; at < end; ++at) {
      if (Is(at, "(")) ++depth;
      if (Is(at, ")")) --depth;
      if (Is(at, ",") && depth == 1) ++commas;
    }
    return commas + 1;
  }
  [[nodiscard]] std::size_t ColumnsBefore(std::size_t at) const {
    std::size_t open = at - 1;
    while (open > 0 && !Is(open, "(")) --open;
    return Length(open, at);
  }

  /// A comparison in parentheses in the place of a value: the server has no values that are true or false.
  void CheckComparedValues() {
    static const std::set<std::string> kBeforeValue{"=", ",", "select", "values", "then", "else"};
    static const std::set<std::string> kComparisons{"=", "<", ">", "<=", ">=", "<>", "!="};
    for (std::size_t at = 1; at < tokens_.size(); ++at) {
      if (!Is(at, "(") || !kBeforeValue.contains(tokens_[at - 1].text)) continue;
      if (Is(at + 1, "select") || Is(at + 1, "case")) continue;
      const std::size_t end = EndOf(at);
      int depth = 0;
      for (std::size_t inside = at; inside < end; ++inside) {
        if (Is(inside, "(")) ++depth;
        if (Is(inside, ")")) --depth;
        const bool isSymbol = tokens_[inside].kind == SqlTokenKind::Symbol;
        if (depth == 1 && isSymbol && kComparisons.contains(tokens_[inside].text)) {
          Found("a comparison is no value: " + tokens_[inside].text);
          break;
        }
      }
    }
  }

  void CheckIdentityInsert() {
    std::string on;
    bool hasInsert = false;
    for (std::size_t at = 0; at < tokens_.size(); ++at) {
      if (Is(at, "insert") && Is(at + 1, "into") && Is(at + 2, on)) {
        const auto columns = tokens_.begin() + static_cast<std::ptrdiff_t>(at);
        const auto end = tokens_.begin() + static_cast<std::ptrdiff_t>(EndOf(at + 3));
        hasInsert = std::any_of(columns, end, [](const Token& token) { return token.text == "id"; });
      }
      if (!Is(at, "set") || !Is(at + 1, "identity_insert") || at + 3 >= tokens_.size()) continue;
      const std::string& table = tokens_[at + 2].text;
      if (Is(at + 3, "on")) {
        if (!on.empty()) Found("identity_insert for two tables");
        on = table;
        hasInsert = false;
      } else {
        if (table != on || !hasInsert) Found("identity_insert of " + table + " serves no insert of its key");
        on.clear();
      }
    }
    if (!on.empty()) Found("identity_insert of " + on + " is never switched off");
  }

  void CheckTable() {
    if (!Is(3, "(") || EndOf(3) != tokens_.size()) return Found("a table that is not a list of columns");
    std::size_t identities = 0;
    std::set<std::string> names;
    std::size_t begin = 4;
    int depth = 0;
    for (std::size_t at = 4; at < tokens_.size(); ++at) {
      if (Is(at, "(")) ++depth;
      if (depth == 0 && (Is(at, ",") || at + 1 == tokens_.size())) {
        CheckColumn(begin, at, identities);
        if (!Is(begin, "primary") && !names.insert(tokens_[begin].text).second) {
          Found("two columns " + tokens_[begin].text);
        }
        begin = at + 1;
      }
      if (Is(at, ")")) --depth;
    }
    if (identities > 1) Found("two identities");
  }

  void CheckColumn(std::size_t begin, std::size_t end, std::size_t& identities) {
    if (Is(begin, "primary") || Is(begin + 1, "as")) return;
    static const std::set<std::string> kWhole{"int", "float", "datetime", "bit"};
    const std::string& name = tokens_[begin].text;
    std::size_t at = begin + 2;
    if (Is(begin + 1, "nvarchar")) {
      if (!IsLength(at)) return Found("no length of " + name);
      at = EndOf(at);
    } else if (begin + 1 >= end || !kWhole.contains(tokens_[begin + 1].text)) {
      return Found("no type of the server's: " + name);
    }
    bool saysNull = false;
    bool isNotNull = false;
    for (; at < end; ++at) {
      if (Is(at, "null")) {
        saysNull = true;
        isNotNull = Is(at - 1, "not");
      } else if (Is(at, "identity")) {
        ++identities;
        if (!Is(begin + 1, "int") || !isNotNull) Found("an identity that is no whole number: " + name);
        at = EndOf(at + 1) - 1;
      } else if (Is(at, "primary")) {
        if (!isNotNull) Found("a key that may be NULL: " + name);
        ++at;
      } else if (Is(at, "default")) {
        ++at;
      } else if (!Is(at, "not")) {
        Found("unknown in column " + name + ": " + tokens_[at].text);
      }
    }
    if (!saysNull) Found("neither null nor not null: " + name);
  }

  /// `(1)` to `(4000)`, or `(max)`.
  [[nodiscard]] bool IsLength(std::size_t at) const {
    if (!Is(at, "(") || !Is(at + 2, ")")) return false;
    if (Is(at + 1, "max")) return true;
    const std::string& text = tokens_[at + 1].text;
    int length = 0;
    std::from_chars(text.data(), text.data() + text.size(), length);
    return length >= 1 && length <= 4000;
  }

  std::vector<Token> tokens_;
  std::vector<std::string> findings_;
};

}  // namespace

std::vector<std::string> BrokenRules(const std::string& batch) { return Batch(batch).Findings(); }

}  // namespace koru::test
