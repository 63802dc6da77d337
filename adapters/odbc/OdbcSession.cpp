#include "adapters/odbc/OdbcSession.h"

#include <algorithm>
#include <utility>

#include "adapters/odbc/OdbcConnectError.h"
#include "adapters/odbc/OdbcDiagnostics.h"
#include "adapters/odbc/OdbcRows.h"
#include "adapters/odbc/WideText.h"
#include "platform/sql/ConnectionText.h"
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

/// The server's numbers for a missing or forbidden database count before that of a refused login, which it
/// sends as well.
Step WhereItFailed(const Diagnostics& diagnostics) {
  const bool noDriver = HasState(diagnostics, "IM002") || HasState(diagnostics, "IM003") ||
                        HasState(diagnostics, "IM004") ||
                        (diagnostics.size() == 1 && diagnostics.front().state == "01000");
  if (noDriver) return Step::Driver;
  if (HasState(diagnostics, "08004") || HasNative(diagnostics, {911, 916, 4060, 4064})) return Step::Database;
  if (HasState(diagnostics, "28000") || HasNative(diagnostics, {18452, 18456})) return Step::SignIn;
  return Step::Server;
}

/// What the connection text asks for that a server or this machine may not have: a driver reports it no
/// differently from a server that is away.
std::string Wanted(const OdbcTarget& target) {
  std::string wanted;
  if (target.encrypts) {
    wanted += " رشته اتصال رمزنگاري مي\u200cخواهد (Encrypt)؛ شايد اين سرور TLS ندارد.";
  }
  if (target.integrated) {
    wanted +=
        " ورود با كاربر اين رايانه خواسته شده است (Integrated Security)؛ شايد او بليت Kerberos ندارد "
        "(klist آن را نشان مي\u200cدهد).";
  }
  return wanted;
}

std::string Sentence(Step step, const OdbcTarget& target, bool isTimeout, OdbcTimeouts timeouts) {
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
  return "به سرور «" + target.server + "» وصل نشد. نام سرور، درگاه آن و روشن بودنش را بررسي كنيد." +
         Wanted(target);
}

}  // namespace

OdbcSession::OdbcSession(const OdbcTarget& target, OdbcTimeouts timeouts)
    : timeouts_(timeouts), connection_(environment_.Get()) {
  SQLSetConnectAttrW(connection_.Get(), SQL_ATTR_LOGIN_TIMEOUT, AsPointer(timeouts.login), SQL_IS_UINTEGER);
  Connect(target);
}

OdbcSession::~OdbcSession() { SQLDisconnect(connection_.Get()); }

void OdbcSession::Connect(const OdbcTarget& target) {
  std::u16string text = ToUtf16(target.odbcText);
  const SQLRETURN result =
      SQLDriverConnectW(connection_.Get(), nullptr, Units(text), static_cast<SQLSMALLINT>(text.size()),
                        nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
  if (SQL_SUCCEEDED(result)) return;
  const Diagnostics diagnostics = ReadDiagnostics(SQL_HANDLE_DBC, connection_.Get());
  const Diagnostic best = MostUseful(diagnostics);
  const Step step = WhereItFailed(diagnostics);
  throw OdbcConnectError(step,
                         Sentence(step, target, IsTimeout(diagnostics), timeouts_) + "\n" +
                             WordsWithoutPassword(Described(best), target.password),
                         best.native);
}

bool OdbcSession::HasAttribute(SQLINTEGER attribute) const {
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
  lost_ = isTimeout || isGone || HasAttribute(SQL_ATTR_CONNECTION_DEAD);
  const std::string perhaps = isInTransaction_ ? ".\n" : "؛ روشن نيست كه اين دستور اجرا شده باشد.\n";
  std::string sentence;
  if (isTimeout) {
    sentence = "سرور در " + std::to_string(limit_.count()) + " ثانيه پاسخي نداد" + perhaps;
  } else if (lost_) {
    sentence = "ارتباط با سرور قطع شد" + perhaps;
  }
  throw DatabaseError(sentence + Described(best), best.native, {},
                      lost_ ? DatabaseCause::Away : CauseOf(best));
}

void OdbcSession::Execute(const Handle& statement, std::string_view text, std::size_t statements) {
  limit_ = timeouts_.OfBatch(statements);
  SQLSetStmtAttrW(statement.Get(), SQL_ATTR_QUERY_TIMEOUT, AsPointer(limit_), SQL_IS_UINTEGER);
  std::u16string wide = ToUtf16(text);
  Check(SQLExecDirectW(statement.Get(), Units(wide), static_cast<SQLINTEGER>(wide.size())), statement);
}

void OdbcSession::ReadResults(const Handle& statement, const std::function<void(Recordset)>& take) {
  SQLRETURN more = SQL_SUCCESS;
  while (more != SQL_NO_DATA) {
    Recordset read = ReadRows(statement.Get());
    SQLLEN rows = -1;  // where the server does not say
    if (read.Columns().empty() && SQL_SUCCEEDED(SQLRowCount(statement.Get(), &rows)) && rows >= 0)
      read.SetAffectedRows(rows);
    take(std::move(read));
    more = SQLMoreResults(statement.Get());
    Check(more, statement);
  }
}

void OdbcSession::Run(std::string_view batch, const std::function<void(Recordset)>& take,
                      std::size_t statements) {
  const Handle handle(connection_.Get());
  Execute(handle, batch, statements);
  ReadResults(handle, take);
}

Recordset OdbcSession::Run(std::string_view batch) {
  Recordset records;
  bool isFirst = true;
  Run(batch, [&](Recordset read) {
    if (records.Columns().empty() && (isFirst || !read.Columns().empty())) records = std::move(read);
    isFirst = false;
  });
  return records;
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
  ReadResults(statement, [](const Recordset&) {});
  return answer;
}

}  // namespace koru
