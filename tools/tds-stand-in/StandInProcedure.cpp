#include "tools/tds-stand-in/StandInProcedure.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "platform/text/Text.h"
#include "tools/tds-stand-in/ServerRefusals.h"

namespace koru::test {
namespace {

std::int32_t Number(const std::string& word) {
  std::int32_t number = 0;
  std::from_chars(word.data(), word.data() + word.size(), number);
  return number;
}

}  // namespace

std::string StandInProcedure::Selection(const std::vector<std::int32_t>& arguments) const {
  if (arguments.size() > parameters.size()) throw Refusal(8144, name, name);
  if (arguments.size() < parameters.size()) throw Refusal(201, name, name);
  const ServerBatch batch(selection);
  std::string asked = selection;
  // From the end, so that earlier positions stay valid.
  for (std::size_t at = batch.Size(); at-- > 0;) {
    const auto parameter = std::find_if(parameters.begin(), parameters.end(), [&](const std::string& known) {
      return EqualsNoCase(known, batch.Word(at));
    });
    if (parameter == parameters.end()) continue;
    const auto place = static_cast<std::size_t>(std::distance(parameters.begin(), parameter));
    const SqlToken token = batch.Token(at);
    asked.replace(token.begin, token.end - token.begin, std::to_string(arguments[place]));
  }
  return asked;
}

StandInProcedure ReadProcedure(const ServerBatch& batch) {
  StandInProcedure procedure;
  procedure.name = batch.Word(2);
  std::size_t at = 3;
  while (batch.Word(at).starts_with('@') && batch.Has(at + 1, {"int"})) {
    procedure.parameters.push_back(batch.Word(at));
    at += batch.Has(at + 2, {","}) ? 3 : 2;
  }
  constexpr std::size_t kHead = 8;  // words up to the parenthesis
  const std::size_t open = at + kHead - 1;
  const std::size_t close = batch.Closing(open);
  const bool isKnown = batch.Has(at, {"as", "begin", "set", "nocount", "on", "if", "exists", "("}) &&
                       batch.Has(close, {")", "return", "", "return", "", "end"}) &&
                       batch.Size() == close + 6;
  if (!isKnown) throw NotKnownHere("a procedure of this form: " + procedure.name, batch.Text());
  procedure.selection = batch.Between(open + 1, close);
  procedure.found = Number(batch.Word(close + 2));
  procedure.notFound = Number(batch.Word(close + 4));
  return procedure;
}

}  // namespace koru::test
