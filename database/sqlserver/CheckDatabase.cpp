#include "database/sqlserver/CheckDatabase.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "adapters/odbc/OdbcConnectError.h"
#include "database/sqlserver/MeasureCalculation.h"
#include "database/sqlserver/NeededTables.h"
#include "platform/sql/DatabaseError.h"
#include "platform/text/Numbers.h"

namespace koru {
namespace {

using Step = OdbcConnectError::Step;

/// The steps of a connection, in order.
constexpr std::array<std::pair<Step, const char*>, 5> kSteps{{{Step::Text, "رشته اتصال"},
                                                              {Step::Driver, "راه انداز"},
                                                              {Step::Server, "سرور"},
                                                              {Step::SignIn, "ورود"},
                                                              {Step::Database, "پايگاه داده"}}};

std::string Words(const DatabaseError& failure) { return " (" + failure.ServerText() + ")"; }

class Check {
 public:
  explicit Check(std::vector<CheckedThing>& things) : things_(things) {}

  std::unique_ptr<Database> Connect(DatabaseConnector& databases, const std::string& connectionText) {
    try {
      std::unique_ptr<Database> database = databases.Connect(connectionText);
      for (const auto& step : kSteps) Good(step.second, "درست است.");
      return database;
    } catch (const OdbcConnectError& failure) {
      for (const auto& [step, name] : kSteps) {
        if (step == failure.Where()) {
          Bad(name, failure.ServerText());
          return nullptr;
        }
        Good(name, "درست است.");
      }
    } catch (const DatabaseError& failure) {
      Bad(kSteps.back().second, failure.ServerText());
    }
    return nullptr;
  }

  void Table(Database& database, const NeededTable& table) {
    const std::string what(table.name);
    if (std::string words;
        !Runs(database, SqlText("select 1 as Found from ") + SqlName(table.name) + " where 1=0", words)) {
      return Bad(what, "در اين پايگاه داده نيست يا اجازة خواندن آن داده نشده است." + words);
    }
    bool all = true;
    for (const std::string_view column : table.columns) {
      std::string words;
      const SqlText read =
          SqlText("select ") + SqlName(column) + " from " + SqlName(table.name) + " where 1=0";
      if (Runs(database, read, words)) continue;
      Bad(what + "." + std::string(column), "اين ستون نيست يا خوانده نمي شود." + words);
      all = false;
    }
    if (all) Good(what, "با همة ستون هاي لازم هست.");
    if (all && table.writes != Writes::None) Rights(database, table);
  }

  void Procedure(Database& database) {
    try {
      database.Call("spPelinHasPermission", {0, 806});
      Good("spPelinHasPermission", "اجرا شد.");
    } catch (const OdbcConnectError&) {
      throw;
    } catch (const DatabaseError& failure) {
      Bad("spPelinHasPermission", "اين روال نيست يا اجازة اجراي آن داده نشده است." + Words(failure));
    }
  }

  /// How long a calculation takes; nothing where it could not run.
  void Speed(Database& database) {
    const bool all =
        std::all_of(things_.begin(), things_.end(), [](const CheckedThing& thing) { return thing.ok; });
    if (!all) return;
    const char* const what = "سرعت";
    try {
      const CalculationTime time = MeasureCalculation(database);
      Good(what, "رفت و برگشت " + NumberText(static_cast<double>(time.roundTrip.count()) / 1000) +
                     " ميلي\u200cثانيه، محاسبة 50 رديف " + std::to_string(time.lines50.count()) +
                     " ميلي\u200cثانيه؛ محاسبة 32767 رديف كمابيش " + std::to_string(time.full.count()) +
                     " ثانيه طول مي\u200cكشد.");
    } catch (const OdbcConnectError&) {
      throw;
    } catch (const DatabaseError& failure) {
      Bad(what, "اندازه گرفته نشد." + Words(failure));
    }
  }

  void Good(const std::string& what, const std::string& sentence) {
    things_.push_back({what, true, sentence});
  }
  void Bad(const std::string& what, const std::string& sentence) {
    things_.push_back({what, false, sentence});
  }

 private:
  /// The server checks permissions even for a statement that affects no rows.
  void Rights(Database& database, const NeededTable& table) {
    // The second column, because the first one may be an identity column.
    const SqlName name(table.name);
    const SqlName column(table.columns[1]);
    const std::string what = "اجازة نوشتن " + std::string(table.name);
    std::string words;
    bool may = Runs(database, SqlText("delete ") + name + " where 1=0", words) &&
               Runs(database, Insertion(table), words);
    if (table.writes == Writes::InsertUpdateDelete) {
      may = may &&
            Runs(database, SqlText("update ") + name + " set " + column + "=" + column + " where 1=0", words);
    }
    if (may) return Good(what, "داده شده است.");
    Bad(what, "داده نشده است." + words);
  }

  /// Without ID, which is an identity column in the document tables.
  static SqlText Insertion(const NeededTable& table) {
    SqlText columns;
    for (const std::string_view column : table.columns) {
      if (column == "ID") continue;
      if (!columns.Empty()) columns += ",";
      columns += SqlName(column);
    }
    return SqlText("insert into ") + SqlName(table.name) + " (" + columns + ") select " + columns + " from " +
           SqlName(table.name) + " where 1=0";
  }

  /// Whether the statement succeeds; on failure `words` gets the server's message. A connection that cannot
  /// be reopened ends the whole check.
  static bool Runs(Database& database, const SqlText& statement, std::string& words) {
    try {
      database.Open(statement);
      return true;
    } catch (const OdbcConnectError&) {
      throw;
    } catch (const DatabaseError& failure) {
      words = Words(failure);
      return false;
    }
  }

  std::vector<CheckedThing>& things_;
};

}  // namespace

std::vector<CheckedThing> CheckDatabase(DatabaseConnector& databases, const std::string& connectionText) {
  std::vector<CheckedThing> things;
  Check check(things);
  try {
    const std::unique_ptr<Database> database = check.Connect(databases, connectionText);
    if (!database) return things;
    for (const NeededTable& table : NeededTables()) check.Table(*database, table);
    check.Procedure(*database);
    check.Speed(*database);
  } catch (const OdbcConnectError& failure) {
    check.Bad("سرور", failure.ServerText());
  }
  return things;
}

}  // namespace koru
