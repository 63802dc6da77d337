#include "adapters/sqlite/OrAsIn.h"

#include <cstddef>

#include "platform/text/Text.h"

namespace koru {
namespace {

/// Whether `X=n or X in (select` stands at that place, and the parenthesis before it closes right behind the
/// selection.
bool StandsAt(const StatementTokens& tokens, std::size_t at) {
  const bool begins = At(tokens, at).kind == SqlTokenKind::Word && At(tokens, at + 1).Is("=") &&
                      At(tokens, at + 2).kind == SqlTokenKind::Parameter && At(tokens, at + 3).Is("or") &&
                      EqualsNoCase(At(tokens, at + 4).text, tokens[at].text) && At(tokens, at + 5).Is("in") &&
                      At(tokens, at + 6).Is("(") && At(tokens, at + 7).Is("select");
  return begins && At(tokens, EndOfLevel(tokens, at + 7) + 1).Is(")");
}

}  // namespace

void ReadOrAsIn(StatementTokens& tokens, const std::string& table, const SqliteConnection& connection) {
  for (std::size_t at = 1; at < tokens.size(); ++at) {
    if (!tokens[at - 1].Is("(") || !StandsAt(tokens, at)) continue;
    if (!connection.IsIntegerColumn(table, tokens[at].text)) continue;
    StatementTokens in = ReadTokens(tokens[at].text + " in (select");
    StatementToken number = tokens[at + 2];
    number.spaceBefore = true;
    in.push_back(number);
    for (const StatementToken& token : ReadTokens("union all")) in.push_back(token);
    in[in.size() - 2].spaceBefore = true;
    tokens[at + 7].spaceBefore = true;
    in.front().spaceBefore = false;
    Replace(tokens, at, at + 7, in);
  }
}

}  // namespace koru
