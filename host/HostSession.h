#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "adapters/system/SystemServices.h"
#include "adapters/xlsx/XlsxStarter.h"
#include "desktop/fields/SelectorRecords.h"
#include "desktop/forms/DesktopScreen.h"
#include "host/IniFile.h"
#include "host/IniPropertyBag.h"
#include "platform/ports/Components.h"
#include "platform/ports/HostServices.h"
#include "platform/sql/Database.h"
#include "services/Messages.h"

namespace koru {

/// Everything behind the host screen: what the embedded control needs from where it runs, and the settings
/// file that is its property store, so that user and database are the same after a restart.
class HostSession {
 public:
  struct User {
    std::int32_t id = 0;
    std::string name;
  };

  /// Reads the settings; a file that is not there gives defaults. Throws InputError naming what cannot be
  /// read; the file then stays as it is.
  explicit HostSession(const std::filesystem::path& settings);

  [[nodiscard]] HostServices Where();
  [[nodiscard]] PropertyBag& Properties() { return properties_; }
  /// Brings the properties to the disk. Throws InputError.
  void SaveProperties() const { settings_.Write(); }

  /// Those who can sign in, by name. Throws DatabaseError.
  [[nodiscard]] std::vector<User> Users(const std::string& connection);
  /// Throws DatabaseError with one sentence when the connection text leads to no usable database.
  void TestConnection(const std::string& connection) { databases_->Connect(connection).reset(); }
  /// Tells the person of a failure.
  void ShowFailure(const std::exception& failure) const { messages_.ShowFailure(failure); }

 private:
  IniFile settings_;
  IniPropertyBag properties_{settings_, "comInvCounting"};
  std::unique_ptr<DatabaseConnector> databases_;
  ComponentRegistry components_;
  Messages messages_{components_};
  SystemClock clock_;
  SystemFileSystem files_;
  XlsxStarter spreadsheets_;
  SelectorRecords records_{*databases_};
  DesktopScreen screen_;
};

/// Whether a control that holds this connection text was ever given one; "0" is what it starts with.
[[nodiscard]] bool IsConnection(std::string_view connection);

}  // namespace koru
