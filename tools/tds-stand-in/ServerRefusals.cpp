#include "tools/tds-stand-in/ServerRefusals.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <string_view>

#include "tools/tds-stand-in/TdsServer.h"

namespace koru::test {
namespace {

/// `%` is the place of the name.
struct Words {
  int number;
  std::string_view words;
};
constexpr std::array<Words, 30> kWords{{
    {102, "Incorrect syntax near '%'."},
    {137, "Must declare the scalar variable \"%\"."},
    {201, "Procedure or function '%' expects a parameter, which was not supplied."},
    {207, "Invalid column name '%'."},
    {208, "Invalid object name '%'."},
    {209, "Ambiguous column name '%'."},
    {241, "Conversion failed when converting date and/or time from character string."},
    {242, "The conversion of a varchar data type to a datetime data type resulted in an out-of-range value."},
    {245, "Conversion failed when converting the varchar value to data type int, column '%'."},
    {271,
     "The column '%' cannot be modified because it is either a computed column or is the result of a UNION "
     "operator."},
    {515, "Cannot insert the value NULL into column '%'; column does not allow nulls."},
    {544,
     "Cannot insert explicit value for identity column in table '%' when IDENTITY_INSERT is set to OFF."},
    {1088, "Cannot find the object \"%\" because it does not exist or you do not have permissions."},
    {1205,
     "Transaction was deadlocked on lock resources with another process and has been chosen as the deadlock "
     "victim. Rerun the transaction.%"},
    {1902, "Cannot create more than one clustered index on table '%'."},
    {1913, "The operation failed because an index or statistics with name '%' already exists."},
    {2601, "Cannot insert duplicate key row in object with unique index, duplicate key: %."},
    {2627, "Violation of PRIMARY KEY constraint, duplicate key: %."},
    {2714, "There is already an object named '%' in the database."},
    {2812, "Could not find stored procedure '%'."},
    {3701, "Cannot drop '%', because it does not exist or you do not have permission."},
    {4506, "Column names in each view or function must be unique. '%' has one twice."},
    {4701, "Cannot find the object \"%\" because it does not exist or you do not have permissions."},
    {8106, "Table '%' does not have the identity property. Cannot perform SET operation."},
    {8114, "Error converting data type varchar to float."},
    {8115, "Arithmetic overflow error converting expression to data type int."},
    {3902, "The COMMIT TRANSACTION request has no corresponding BEGIN TRANSACTION: %."},
    {3903, "The ROLLBACK TRANSACTION request has no corresponding BEGIN TRANSACTION: %."},
    {8144, "Procedure or function % has too many arguments specified."},
    {8152, "String or binary data would be truncated."},
}};

constexpr std::string_view kBrokenRule = "CHECK constraint failed: ";

/// Words of the engine that the name follows, and the server's number.
struct Known {
  std::string_view mark;
  int number;
};
constexpr std::array<Known, 9> kKnown{{
    {"no such table: ", 208},
    {"no such column: ", 207},
    {" has no column named ", 207},
    {"ambiguous column name: ", 209},
    {"UNIQUE constraint failed: ", 2627},
    {"NOT NULL constraint failed: ", 515},
    {"cannot store TEXT value in INTEGER column ", 245},
    {"cannot store TEXT value in REAL column ", 8114},
    {"generated column ", 271},
}};

/// The refusal that a broken constraint names (RuleName): its number, and the column after the colon.
std::optional<ServerRefusal> BrokenRule(const DatabaseError& failure) {
  const std::string words = failure.ServerText();
  const std::size_t at = words.find(kBrokenRule);
  const std::size_t colon = words.find(':', at + kBrokenRule.size());
  if (at == std::string::npos || colon == std::string::npos) return {};
  int number = 0;
  std::from_chars(words.data() + at + kBrokenRule.size(), words.data() + colon, number);
  return Refusal(number, words.substr(colon + 1), failure.Statement());
}

/// The object that the engine names, without the name of its database, quotation marks and the words after
/// it.
std::string Named(std::string words) {
  if (words.starts_with("main.")) words.erase(0, 5);
  if (words.starts_with('"')) words = words.substr(1, words.find('"', 1) - 1);
  return words;
}

}  // namespace

ServerRefusal Refusal(int number, const std::string& name, const std::string& batch) {
  const auto* known =
      std::find_if(kWords.begin(), kWords.end(), [&](const Words& words) { return words.number == number; });
  std::string words(known == kWords.end() ? "%" : known->words);
  if (const std::size_t at = words.find('%'); at != std::string::npos) words.replace(at, 1, name);
  return {words, number, batch};
}

ServerRefusal NotKnownHere(const std::string& what, const std::string& batch) {
  return {"The stand-in server does not know: " + what, TdsServer::kOwnMessage, batch};
}

std::string RuleName(int number, const std::string& column) { return std::to_string(number) + ":" + column; }

ServerRefusal AsServer(const DatabaseError& failure) {
  if (const std::optional<ServerRefusal> broken = BrokenRule(failure)) return *broken;
  const std::string words = failure.ServerText();
  for (const Known& known : kKnown) {
    const std::size_t at = words.find(known.mark);
    if (at == std::string::npos) continue;
    const bool isIndex = failure.Code() == SQLITE_CONSTRAINT_UNIQUE;
    return Refusal(isIndex ? 2601 : known.number, Named(words.substr(at + known.mark.size())),
                   failure.Statement());
  }
  return {words, TdsServer::kOwnMessage, failure.Statement()};
}

}  // namespace koru::test
