// A typed text that passes the check is the content of one literal: whatever else had been typed in its
// place, the statement would have the same tokens. Texts whose apostrophes are doubled always pass.

#include <algorithm>
#include <string>
#include <vector>

#include "fuzz/Require.h"
#include "platform/sql/DatabaseError.h"
#include "platform/sql/SqlLexer.h"
#include "platform/sql/SqlText.h"
#include "services/FixQuote.h"

namespace {

using koru::SqlText;
using koru::fuzz::Require;

/// The program's own words, chosen by a byte of the input.
void AppendFixed(SqlText& sql, std::uint8_t which) {
  switch (which % 16) {
    case 0:
      sql += "select '";
      break;
    case 1:
      sql += "'";
      break;
    case 2:
      sql += "' and Name='";
      break;
    case 3:
      sql += "' and Notes like '%";
      break;
    case 4:
      sql += "%'";
      break;
    case 5:
      sql += " in ('";
      break;
    case 6:
      sql += "','";
      break;
    case 7:
      sql += "')";
      break;
    case 8:
      sql += "N'";
      break;
    case 9:
      sql += "--";
      break;
    case 10:
      sql += "/*";
      break;
    case 11:
      sql += "*/";
      break;
    case 12:
      sql += "[";
      break;
    case 13:
      sql += "]";
      break;
    case 14:
      sql += "\"";
      break;
    default:
      sql += "\n";
      break;
  }
}

/// An input in turn names the program's words (a byte each) and gives a typed text up to the next line feed.
struct Parts {
  std::vector<std::uint8_t> words;
  std::vector<std::string> typed;
};

Parts PartsOf(std::string_view input) {
  Parts parts;
  while (!input.empty()) {
    parts.words.push_back(static_cast<std::uint8_t>(input.front()));
    input.remove_prefix(1);
    parts.typed.emplace_back(input.substr(0, input.find('\n')));
    input.remove_prefix(std::min(input.size(), parts.typed.back().size() + 1));
  }
  return parts;
}

template <class Typing>
SqlText Statement(const Parts& parts, Typing typing) {
  SqlText sql;
  for (std::size_t part = 0; part < parts.words.size(); ++part) {
    AppendFixed(sql, parts.words[part]);
    const std::string typed = typing(parts.typed[part]);
    if (!typed.empty()) sql += koru::Typed(typed);
    AppendFixed(sql, parts.words[part] / 16);
  }
  return sql;
}

std::vector<koru::SqlTokenKind> KindsOf(const SqlText& sql) {
  std::vector<koru::SqlTokenKind> kinds;
  koru::SqlLexer lexer(sql.Text());
  for (koru::SqlToken token = lexer.Next(); token.kind != koru::SqlTokenKind::End; token = lexer.Next())
    kinds.push_back(token.kind);
  return kinds;
}

bool Passes(const SqlText& sql) {
  try {
    koru::CheckTypedSpans(sql);
    return true;
  } catch (const koru::DatabaseError&) {
    return false;
  }
}

void CheckAnythingElse(const Parts& parts) {
  const SqlText sql = Statement(parts, [](const std::string& typed) { return typed; });
  if (!Passes(sql)) return;
  for (const char* const other : {"x", "'' or 1=1 --", "*/ [ \" N"}) {
    const SqlText replaced = Statement(
        parts, [&](const std::string& typed) { return typed.empty() ? typed : std::string(other); });
    Require(KindsOf(replaced) == KindsOf(sql), "what is typed changes no token");
  }
}

void CheckDoubled(std::string_view typed) {
  const std::string text(typed.substr(0, typed.find('\0')));
  SqlText sql = SqlText("select * from tblGood where Name like '") + koru::Typed(koru::FixQuote(text)) + "%'";
  Require(Passes(sql), "a text with its apostrophes doubled passes");
  sql += koru::Typed("x");
  Require(!Passes(sql), "a typed text outside of a literal does not pass");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input = koru::fuzz::TextOf(data, size);
  CheckDoubled(input);
  CheckAnythingElse(PartsOf(input));
  return 0;
}
