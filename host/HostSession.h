#pragma once

#include <cstdint>
#include <exception>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/system/DraftFiles.h"
#include "adapters/system/WriterThread.h"
#include "database/sqlserver/CheckDatabase.h"
#include "desktop/suite/DesktopSuite.h"
#include "host/BackgroundWork.h"
#include "host/CountingRows.h"
#include "host/HostSettings.h"

namespace koru {

/// What the host screen works with: the suite, the settings, and beside their file the folders of drafts and
/// of counting on the floor.
class HostSession {
 public:
  struct User {
    std::int32_t id = 0;
    std::string name;
  };

  /// Reads the settings; a missing file gives defaults. Throws InputError naming what cannot be read; the
  /// file then stays as it is (IniFile::SetAside renames it).
  explicit HostSession(const std::filesystem::path& settings);

  [[nodiscard]] HostServices Services();
  [[nodiscard]] HostSettings& Settings() { return settings_; }
  [[nodiscard]] const std::filesystem::path& SettingsFile() const { return settingsFile_; }
  [[nodiscard]] BackgroundWork& Background() { return background_; }

  /// The users who can sign in, by name. Throws DatabaseError.
  [[nodiscard]] std::vector<User> Users(const std::string& connection);
  /// All countings. Throws DatabaseError.
  [[nodiscard]] std::vector<CountingRow> Countings(const std::string& connection);
  /// Throws DatabaseError with one sentence when the connection text names no usable database. May be called
  /// on another thread.
  void TestConnection(const std::string& connection) { suite_.Databases().Connect(connection).reset(); }
  /// The checks of `koru-counting check`. May be called on another thread.
  [[nodiscard]] std::vector<CheckedThing> Check(const std::string& connection) {
    return CheckDatabase(suite_.Databases(), connection);
  }
  /// Shows a failure to the user.
  void ShowFailure(const std::exception& failure) const { suite_.ShowFailure(failure); }
  /// Messages::AskQuestion.
  [[nodiscard]] int AskQuestion(const std::string& title, const std::string& question) const {
    return suite_.AskQuestion(title, question);
  }

 private:
  std::filesystem::path settingsFile_;
  HostSettings settings_;
  DesktopSuite suite_;
  DraftFiles drafts_;
  WriterThread draftWriter_;
  BackgroundWork background_;  // uses the suite until it has ended
};

/// Whether a control that holds this connection text was ever given one; "0" is its initial value.
[[nodiscard]] bool IsConnection(std::string_view connection);

}  // namespace koru
