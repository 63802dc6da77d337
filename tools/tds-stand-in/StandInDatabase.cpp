#include "tools/tds-stand-in/StandInDatabase.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <system_error>

namespace koru::test {
namespace {

std::string NewFolder() {
  std::string folder = (std::filesystem::temp_directory_path() / "koru-stand-in-XXXXXX").string();
  if (mkdtemp(folder.data()) == nullptr) throw std::runtime_error("no temporary folder");
  return folder;
}

}  // namespace

StandInDatabase::StandInDatabase() : folder_(NewFolder()) {
  engine_ =
      std::make_unique<SqliteConnection>(File(), SqliteConnection::Mode::Create, std::chrono::seconds(0));
  schema_ = std::make_unique<StandInSchema>(*engine_);
  engine_->Execute("PRAGMA journal_mode=wal");
}

StandInDatabase::~StandInDatabase() {
  engine_.reset();
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

SqliteConnection StandInDatabase::Connect() const {
  // Clients open and close their connections at any time, and the engine then locks the file for a moment.
  SqliteConnection engine(File(), SqliteConnection::Mode::Existing, std::chrono::seconds(10));
  engine.Execute("PRAGMA synchronous=off; PRAGMA temp_store=memory");
  if (!rowsByKey_) engine.Execute("PRAGMA reverse_unordered_selects=on");
  return engine;
}

}  // namespace koru::test
