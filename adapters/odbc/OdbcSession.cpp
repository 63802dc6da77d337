#include "adapters/odbc/OdbcSession.h"

#include <algorithm>
#include <type_traits>
#include <variant>

#include "adapters/odbc/OdbcConnectError.h"
#include "adapters/odbc/OdbcDiagnostics.h"
#include "adapters/odbc/OdbcRows.h"
#include "adapters/odbc/WideText.h"
#include "platform/sql/DatabaseError.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

using Step = OdbcConnectError::Step;
using Diagnostics = std::vector<Diagnostic>;

/// A number as the attribute functions take it.
SQLPOINTER AsPointer(std::chrono::seconds time) {
  return reinterpret_cast<SQLPOINTER>(
      static_cast<SQLLEN>(time.count()));  // NOLINT(performance-no-int-to-ptr)
}

bool IsTimeout(const Diagnostics& diagnostics) {
  return HasState(diagnostics, "HYT00") || HasState(diagnostics, "HYT01");
}

bool HasNative(const Diagnostics& diagnostics, std::initializer_list<std::int32_t> numbers) {
  return std::any_of(diagnostics.begin(), diagnostics.end(), [&](const Diagnostic& diagnostic) {
    return std::find(numbers.begin(), numbers.end(), diagnostic.native) != numbers.end();
  });
}

/// The server's numbers for a database that is not there or not for this user stand before that of a refused
/// login, which it sends as well.
Step WhereItFailed(const Diagnostics& diagnostics) {
  const bool noDriver = HasState(diagnostics, "IM002") || HasState(diagnostics, "IM003") ||
                        HasState(diagnostics, "IM004") ||
                        (diagnostics.size() == 1 && diagnostics.front().state == "01000");
  if (noDriver) return Step::Driver;
  if (HasState(diagnostics, "08004") || HasNative(diagnostics, {911, 916, 4060, 4064})) return Step::Database;
  if (HasState(diagnostics, "28000") || HasNative(diagnostics, {18452, 18456})) return Step::SignIn;
  return Step::Server;
}

std::string Sentence(Step step, const OdbcTarget& target, bool isTimeout, OdbcTimeouts timeouts) {
  if (target.kind == OdbcTarget::Kind::EmbeddedFile) {
    return step == Step::Driver
               ? "راه انداز ODBC باز نشد: " + target.driver
               : "پروندة پايگاه داده با راه انداز ODBC باز نشد: " + LeftToRight(target.database);
  }
  switch (step) {
    case Step::Driver:
      return "راه انداز ODBC باز نشد: " + target.driver;
    case Step::Database:
      return "پايگاه دادة «" + target.database + "» روي سرور «" + target.server + "» باز نشد.";
    case Step::SignIn:
      return "سرور «" + target.server + "» نام كاربر يا گذرواژه را نپذيرفت.";
    default:
      break;
  }
  if (isTimeout) {
    return "سرور «" + target.server + "» در " + std::to_string(timeouts.login.count()) + " ثانيه پاسخي نداد.";
  }
  return "به سرور «" + target.server + "» وصل نشد. نام سرور، درگاه آن و روشن بودنش را بررسي كنيد.";
}

std::string Without(std::string text, const std::string& password) {
  if (password.empty()) return text;
  for (std::size_t at = text.find(password); at != std::string::npos; at = text.find(password, at + 3)) {
    text.replace(at, password.size(), "***");
  }
  return text;
}

SQLRETURN ConnectWide(SQLHDBC connection, const std::string& odbcText) {
  std::u16string text = ToUtf16(odbcText);
  return SQLDriverConnectW(connection, nullptr, Units(text), static_cast<SQLSMALLINT>(text.size()), nullptr,
                           0, nullptr, SQL_DRIVER_NOPROMPT);
}

/// The driver for SQLite takes UTF-8 and nothing else; on the way from wide text the driver manager would
/// turn the letters of a path into those of the program's locale.
SQLRETURN ConnectNarrow(SQLHDBC connection, std::string odbcText) {
  return SQLDriverConnect(connection, nullptr, reinterpret_cast<SQLCHAR*>(odbcText.data()),
                          static_cast<SQLSMALLINT>(odbcText.size()), nullptr, 0, nullptr,
                          SQL_DRIVER_NOPROMPT);
}

/// What a parameter needs to live until the statement has run.
struct BoundText {
  std::u16string units;
  SQLLEN length = 0;
};

SQLRETURN Bind(SQLHSTMT statement, SQLUSMALLINT place, const Literal& literal, BoundText& bound) {
  if (const auto* whole = std::get_if<std::int64_t>(&literal)) {
    return SQLBindParameter(statement, place, SQL_PARAM_INPUT, SQL_C_SBIGINT, SQL_BIGINT, 0, 0,
                            const_cast<std::int64_t*>(whole), 0, nullptr);
  }
  if (const auto* real = std::get_if<double>(&literal)) {
    return SQLBindParameter(statement, place, SQL_PARAM_INPUT, SQL_C_DOUBLE, SQL_DOUBLE, 0, 0,
                            const_cast<double*>(real), 0, nullptr);
  }
  bound.units = ToUtf16(std::get<std::string>(literal));
  const auto bytes = static_cast<SQLLEN>(bound.units.size() * sizeof(char16_t));
  bound.length = bytes;
  return SQLBindParameter(statement, place, SQL_PARAM_INPUT, SQL_C_WCHAR, SQL_WVARCHAR,
                          std::max<SQLULEN>(bound.units.size(), 1), 0, Units(bound.units), bytes,
                          &bound.length);
}

}  // namespace

OdbcSession::OdbcSession(const OdbcTarget& target, OdbcTimeouts timeouts)
    : timeouts_(timeouts), connection_(environment_.Get()) {
  SQLSetConnectAttrW(connection_.Get(), SQL_ATTR_LOGIN_TIMEOUT, AsPointer(timeouts.login), SQL_IS_UINTEGER);
  Connect(target);
}

OdbcSession::~OdbcSession() { SQLDisconnect(connection_.Get()); }

void OdbcSession::Connect(const OdbcTarget& target) {
  const SQLRETURN result = target.kind == OdbcTarget::Kind::Server
                               ? ConnectWide(connection_.Get(), target.odbcText)
                               : ConnectNarrow(connection_.Get(), target.odbcText);
  if (SQL_SUCCEEDED(result)) return;
  const Diagnostics diagnostics = ReadDiagnostics(SQL_HANDLE_DBC, connection_.Get());
  const Diagnostic best = MostUseful(diagnostics);
  const Step step = WhereItFailed(diagnostics);
  throw OdbcConnectError(step,
                         Sentence(step, target, IsTimeout(diagnostics), timeouts_) + " (" +
                             Without(Told(best), target.password) + ")",
                         best.native);
}

bool OdbcSession::Says(SQLINTEGER attribute) const {
  SQLUINTEGER value = SQL_CD_FALSE;
  SQLRETURN result = SQLGetConnectAttrW(connection_.Get(), attribute, &value, sizeof value, nullptr);
  return SQL_SUCCEEDED(result) && value == SQL_CD_TRUE;
}

void OdbcSession::Check(SQLRETURN result, const Handle& statement) {
  if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA) return;
  const Diagnostics diagnostics = ReadDiagnostics(SQL_HANDLE_STMT, statement.Get());
  const Diagnostic best = MostUseful(diagnostics);
  const bool isTimeout = IsTimeout(diagnostics);
  const bool isGone = std::any_of(diagnostics.begin(), diagnostics.end(), [](const Diagnostic& diagnostic) {
    return diagnostic.state.starts_with("08");
  });
  lost_ = isTimeout || isGone || Says(SQL_ATTR_CONNECTION_DEAD);
  std::string sentence;
  if (isTimeout) {
    sentence = "سرور در " + std::to_string(timeouts_.statement.count()) +
               " ثانيه پاسخي نداد؛ روشن نيست كه اين دستور اجرا شده باشد. ";
  } else if (lost_) {
    sentence = "ارتباط با سرور قطع شد؛ روشن نيست كه اين دستور اجرا شده باشد. ";
  }
  throw DatabaseError(sentence + Told(best), best.native, {});
}

void OdbcSession::Execute(const Handle& statement, std::string_view text) {
  // Drivers that know no such wait say so, and have no server to wait for.
  SQLSetStmtAttrW(statement.Get(), SQL_ATTR_QUERY_TIMEOUT, AsPointer(timeouts_.statement), SQL_IS_UINTEGER);
  std::u16string wide = ToUtf16(text);
  Check(SQLExecDirectW(statement.Get(), Units(wide), static_cast<SQLINTEGER>(wide.size())), statement);
}

Recordset OdbcSession::ReadResults(const Handle& statement) {
  Recordset records;
  SQLRETURN more = SQL_SUCCESS;
  while (more != SQL_NO_DATA) {
    Recordset read = ReadRows(statement.Get());
    if (records.Columns().empty()) records = std::move(read);
    more = SQLMoreResults(statement.Get());
    Check(more, statement);
  }
  return records;
}

Recordset OdbcSession::Run(const SentStatement& sent) {
  const Handle statement(connection_.Get());
  std::vector<BoundText> texts(sent.parameters.size());
  for (std::size_t at = 0; at < sent.parameters.size(); ++at) {
    Check(Bind(statement.Get(), static_cast<SQLUSMALLINT>(at + 1), sent.parameters[at], texts[at]),
          statement);
  }
  Execute(statement, sent.text);
  return ReadResults(statement);
}

std::int32_t OdbcSession::Call(std::string_view procedure, const std::vector<std::int32_t>& parameters) {
  const Handle statement(connection_.Get());
  SQLINTEGER answer = 0;
  SQLLEN answerLength = 0;
  Check(SQLBindParameter(statement.Get(), 1, SQL_PARAM_OUTPUT, SQL_C_SLONG, SQL_INTEGER, 0, 0, &answer, 0,
                         &answerLength),
        statement);
  std::vector<SQLINTEGER> values(parameters.begin(), parameters.end());
  std::string marks;
  for (std::size_t at = 0; at < values.size(); ++at) {
    Check(SQLBindParameter(statement.Get(), static_cast<SQLUSMALLINT>(at + 2), SQL_PARAM_INPUT, SQL_C_SLONG,
                           SQL_INTEGER, 0, 0, &values[at], 0, nullptr),
          statement);
    marks += at == 0 ? " ?" : ", ?";
  }
  Execute(statement, "{? = CALL " + std::string(procedure) + "(" + marks + ") }");
  // The return value is there when all that the procedure selects has been read.
  ReadResults(statement);
  return answer;
}

}  // namespace koru
