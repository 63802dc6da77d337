#include <sqlite3.h>

#include <stdexcept>

#include "adapters/sqlite/PersianFunctions.h"
#include "benchmarks/Limits.h"

namespace koru::bench {

PlainConnection::PlainConnection(const std::string& path) {
  if (sqlite3_open_v2(path.c_str(), &connection_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr) !=
      SQLITE_OK)
    throw std::runtime_error("cannot open " + path);
  RegisterPersianFunctions(connection_);
  Execute("PRAGMA synchronous=FULL; PRAGMA cache_size=-131072; PRAGMA temp_store=MEMORY");
}

PlainConnection::~PlainConnection() { sqlite3_close_v2(connection_); }

void PlainConnection::Execute(const std::string& sql) const {
  if (sqlite3_exec(connection_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
    throw std::runtime_error(sqlite3_errmsg(connection_));
}

}  // namespace koru::bench
