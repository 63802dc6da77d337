#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "benchmarks/Limits.h"

namespace koru::bench {

/// A prepared statement: a thin wrapper of SQLite's C interface. Errors throw std::runtime_error.
class PlainStatement {
 public:
  PlainStatement(const PlainConnection& connection, const std::string& sql) {
    if (sqlite3_prepare_v2(connection.Get(), sql.c_str(), -1, &statement_, nullptr) != SQLITE_OK)
      throw std::runtime_error(sqlite3_errmsg(connection.Get()));
  }
  PlainStatement(const PlainStatement&) = delete;
  PlainStatement& operator=(const PlainStatement&) = delete;
  ~PlainStatement() { sqlite3_finalize(statement_); }

  bool Step() {
    const int result = sqlite3_step(statement_);
    if (result != SQLITE_ROW && result != SQLITE_DONE)
      throw std::runtime_error(sqlite3_errmsg(sqlite3_db_handle(statement_)));
    return result == SQLITE_ROW;
  }
  void Reset() { sqlite3_reset(statement_); }
  /// Steps once and resets.
  void Run() {
    Step();
    Reset();
  }

  void Bind(int parameter, std::int64_t number) { sqlite3_bind_int64(statement_, parameter, number); }
  void Bind(int parameter, double number) { sqlite3_bind_double(statement_, parameter, number); }
  void BindNull(int parameter) { sqlite3_bind_null(statement_, parameter); }
  /// `text` must be valid until the statement has run.
  void Bind(int parameter, std::string_view text) {
    sqlite3_bind_text(statement_, parameter, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
  }

  [[nodiscard]] int Columns() const { return sqlite3_column_count(statement_); }
  [[nodiscard]] std::int64_t Integer(int column) const { return sqlite3_column_int64(statement_, column); }
  [[nodiscard]] double Real(int column) const { return sqlite3_column_double(statement_, column); }
  [[nodiscard]] std::string_view Text(int column) const {
    const void* text = sqlite3_column_text(statement_, column);
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_, column));
    return text == nullptr ? std::string_view() : std::string_view(static_cast<const char*>(text), size);
  }

 private:
  sqlite3_stmt* statement_ = nullptr;
};

}  // namespace koru::bench
