#pragma once

#include <cstdint>
#include <exception>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/system/DraftFiles.h"
#include "desktop/suite/DesktopSuite.h"
#include "host/IniFile.h"
#include "host/IniPropertyBag.h"

namespace koru {

/// What the host screen works with: the suite, the settings file that is the control's property store, so
/// that user and database are the same after a restart, and beside it the folder of drafts.
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
  [[nodiscard]] PropertyBag& Properties() { return properties_; }
  /// Writes the properties to the disk. Throws InputError.
  void SaveProperties() const { settings_.Write(); }

  /// The users who can sign in, by name. Throws DatabaseError.
  [[nodiscard]] std::vector<User> Users(const std::string& connection);
  /// Throws DatabaseError with one sentence when the connection text names no usable database.
  void TestConnection(const std::string& connection) { suite_.Databases().Connect(connection).reset(); }
  /// Shows a failure to the user.
  void ShowFailure(const std::exception& failure) const { suite_.ShowFailure(failure); }

 private:
  IniFile settings_;
  IniPropertyBag properties_{settings_, "comInvCounting"};
  DesktopSuite suite_;
  DraftFiles drafts_;
};

/// Whether a control that holds this connection text was ever given one; "0" is its initial value.
[[nodiscard]] bool IsConnection(std::string_view connection);

}  // namespace koru
