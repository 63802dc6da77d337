#include "adapters/odbc/OdbcRows.h"

#include <algorithm>
#include <string>
#include <vector>

#include "adapters/odbc/OdbcDiagnostics.h"
#include "adapters/odbc/OdbcHandle.h"
#include "adapters/odbc/WideText.h"
#include "platform/sql/DatabaseError.h"

namespace koru {
namespace {

/// In characters; longer texts are read in pieces of this size.
constexpr std::size_t kPiece = 4096;

enum class Kind { Whole, Real, Day, Text };

Kind KindOf(SQLSMALLINT type, SQLSMALLINT decimals) {
  switch (type) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
      return Kind::Whole;
    case SQL_NUMERIC:
    case SQL_DECIMAL:
      return decimals == 0 ? Kind::Whole : Kind::Real;
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return Kind::Real;
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
      return Kind::Day;
    default:
      return Kind::Text;
  }
}

class Reader {
 public:
  explicit Reader(SQLHSTMT statement) : statement_(statement), piece_(kPiece, u'\0') {}

  Recordset Read() {
    SQLSMALLINT columns = 0;
    Check(SQLNumResultCols(statement_, &columns));
    std::vector<std::string> names;
    for (SQLSMALLINT column = 1; column <= columns; ++column) names.push_back(Describe(column));
    Recordset records(std::move(names));
    if (columns == 0) return records;
    for (SQLRETURN result = SQLFetch(statement_); result != SQL_NO_DATA; result = SQLFetch(statement_)) {
      Check(result);
      for (SQLSMALLINT column = 1; column <= columns; ++column) AppendField(records, column);
    }
    return records;
  }

 private:
  /// The name of a column, from 1; its kind is kept.
  std::string Describe(SQLSMALLINT column) {
    std::u16string name(512, u'\0');
    SQLSMALLINT length = 0;
    SQLSMALLINT type = 0;
    SQLULEN size = 0;
    SQLSMALLINT decimals = 0;
    SQLSMALLINT nullable = 0;
    Check(SQLDescribeColW(statement_, static_cast<SQLUSMALLINT>(column), Units(name),
                          static_cast<SQLSMALLINT>(name.size()), &length, &type, &size, &decimals,
                          &nullable));
    kinds_.push_back(KindOf(type, decimals));
    return ToUtf8(name.c_str());
  }

  void AppendField(Recordset& records, SQLSMALLINT column) {
    switch (kinds_[static_cast<std::size_t>(column) - 1]) {
      case Kind::Whole: {
        SQLBIGINT number = 0;
        if (Get(column, SQL_C_SBIGINT, &number, sizeof number)) return records.AppendInteger(number);
        break;
      }
      case Kind::Real: {
        double number = 0;
        if (Get(column, SQL_C_DOUBLE, &number, sizeof number)) return records.AppendReal(number);
        break;
      }
      case Kind::Day: {
        SQL_TIMESTAMP_STRUCT day{};
        if (Get(column, SQL_C_TYPE_TIMESTAMP, &day, sizeof day)) return records.AppendText(DayText(day));
        break;
      }
      case Kind::Text:
        return AppendText(records, column);
    }
    records.AppendNull();
  }

  /// False for NULL.
  bool Get(SQLSMALLINT column, SQLSMALLINT type, SQLPOINTER value, std::size_t size) {
    SQLLEN length = 0;
    Check(SQLGetData(statement_, static_cast<SQLUSMALLINT>(column), type, value, static_cast<SQLLEN>(size),
                     &length));
    return length != SQL_NULL_DATA;
  }

  static std::string DayText(const SQL_TIMESTAMP_STRUCT& day) {
    const auto digits = [](int number, std::size_t count) {
      std::string text = std::to_string(number);
      return std::string(count - std::min(count, text.size()), '0') + text;
    };
    return digits(day.year, 4) + "-" + digits(day.month, 2) + "-" + digits(day.day, 2);
  }

  void AppendText(Recordset& records, SQLSMALLINT column) {
    std::u16string text;
    SQLRETURN result = SQL_SUCCESS_WITH_INFO;
    while (result == SQL_SUCCESS_WITH_INFO) {
      SQLLEN length = 0;
      result = SQLGetData(statement_, static_cast<SQLUSMALLINT>(column), SQL_C_WCHAR, piece_.data(),
                          static_cast<SQLLEN>(kPiece * sizeof(char16_t)), &length);
      if (result == SQL_NO_DATA) break;
      Check(result);
      if (length == SQL_NULL_DATA) return records.AppendNull();
      // Without a warning all of the rest is here; with one, the piece is full up to its closing NUL.
      const std::size_t whole = kPiece - 1;
      const bool isCut =
          length == SQL_NO_TOTAL || static_cast<std::size_t>(length) / sizeof(char16_t) > whole;
      text.append(piece_, 0, isCut ? whole : static_cast<std::size_t>(length) / sizeof(char16_t));
      if (!isCut) break;
    }
    records.AppendText(ToUtf8(text));
  }

  void Check(SQLRETURN result) const {
    if (SQL_SUCCEEDED(result)) return;
    const Diagnostic diagnostic = MostUseful(ReadDiagnostics(SQL_HANDLE_STMT, statement_));
    throw DatabaseError(Described(diagnostic), diagnostic.native, {}, CauseOf(diagnostic));
  }

  SQLHSTMT statement_;
  std::u16string piece_;
  std::vector<Kind> kinds_;
};

}  // namespace

Recordset ReadRows(void* statement) { return Reader(statement).Read(); }

}  // namespace koru
