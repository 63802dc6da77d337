#include "tools/tds-stand-in/StandInDatabase.h"

#include <chrono>

namespace koru::test {

StandInDatabase::StandInDatabase() {
  engine_ =
      std::make_unique<SqliteConnection>(File(), SqliteConnection::Mode::Create, std::chrono::seconds(0));
  schema_ = std::make_unique<StandInSchema>(*engine_);
  engine_->Execute("PRAGMA journal_mode=wal");
}

SqliteConnection StandInDatabase::Connect() const {
  // Clients open and close their connections at any time, and the engine then locks the file for a moment.
  SqliteConnection engine(File(), SqliteConnection::Mode::Existing, std::chrono::seconds(10));
  engine.Execute("PRAGMA synchronous=off; PRAGMA temp_store=memory");
  if (!rowsByKey_) engine.Execute("PRAGMA reverse_unordered_selects=on");
  return engine;
}

}  // namespace koru::test
