#include "tools/tds-stand-in/StandInScript.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "platform/text/Text.h"
#include "tools/tds-stand-in/ServerRefusals.h"

namespace koru::test {
namespace {

constexpr int kNotDeclared = 137;

std::string Written(const std::optional<std::int64_t>& value) {
  return value ? std::to_string(*value) : "NULL";
}

/// A function or variable: the number of its words, and what takes its place.
struct Found {
  std::size_t words = 0;
  std::string value;
};

Found FoundAt(const ServerBatch& statement, std::size_t at, const ScriptValues& values) {
  // The lexer reads `@@name` as two words.
  if (statement.Has(at, {"@", "@error"})) return {2, std::to_string(values.error)};
  if (statement.Has(at, {"@", "@trancount"})) return {2, std::to_string(values.openTransactions)};
  if (statement.Has(at, {"xact_state", "(", ")"})) return {3, values.openTransactions > 0 ? "1" : "0"};
  if (statement.Has(at, {"scope_identity", "(", ")"})) return {3, Written(values.identity)};
  if (statement.Has(at, {"db_name", "(", ")"})) return {3, "'" + values.database + "'"};
  const std::string word = statement.Word(at);
  if (word.size() < 2 || word.front() != '@') return {};
  const auto variable = values.variables.find(LowerAscii(word));
  if (variable == values.variables.end()) throw Refusal(kNotDeclared, word, statement.Text());
  return {1, Written(variable->second)};
}

/// The text between the apostrophes of a literal.
std::string Content(std::string literal) {
  literal.erase(0, literal.find('\'') + 1);
  literal.pop_back();
  return literal;
}

}  // namespace

ServerBatch WithValues(const ServerBatch& statement, const ScriptValues& values) {
  std::string text;
  std::size_t written = 0;
  for (std::size_t at = 0; at < statement.Size(); ++at) {
    const Found found = FoundAt(statement, at, values);
    if (found.words == 0) continue;
    text.append(statement.Text(), written, statement.Token(at).begin - written);
    text += found.value;
    at += found.words - 1;
    written = statement.Token(at).end;
  }
  return written == 0 ? statement : ServerBatch(text.append(statement.Text(), written));
}

LockCall ReadLockCall(const ServerBatch& statement) {
  LockCall call{LowerAscii(statement.Word(1)), {}, -1};
  constexpr std::size_t kFirstArgument = 4;
  bool isExclusive = false;
  bool isOfTransaction = false;
  for (std::size_t at = kFirstArgument; at < statement.Size(); at = statement.EndOfPart(at) + 1) {
    const std::string value = statement.Word(at + 2);
    if (statement.Has(at, {"@Resource", "="})) call.resource = Content(value);
    if (statement.Has(at, {"@LockMode", "="})) isExclusive = EqualsNoCase(value, "'Exclusive'");
    if (statement.Has(at, {"@LockOwner", "="})) isOfTransaction = EqualsNoCase(value, "'Transaction'");
    if (statement.Has(at, {"@LockTimeout", "="})) {
      std::from_chars(value.data(), value.data() + value.size(), call.timeout);
    }
  }
  if (!isExclusive || !isOfTransaction || call.resource.empty() || call.timeout < 0) {
    throw NotKnownHere("this use of sp_getapplock", statement.Text());
  }
  return call;
}

std::size_t ConditionEnd(const ServerBatch& statement) {
  static constexpr std::array<std::string_view, 5> kBegins{"return", "commit", "rollback", "select", "set"};
  for (std::size_t at = 1; at < statement.Size(); ++at) {
    const bool begins = std::any_of(kBegins.begin(), kBegins.end(),
                                    [&](std::string_view word) { return statement.Has(at, {word}); });
    if (begins) return at;
  }
  return statement.Size();
}

}  // namespace koru::test
