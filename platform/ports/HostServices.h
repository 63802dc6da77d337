#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <string>

#include "platform/ports/Components.h"
#include "platform/ports/DraftStore.h"
#include "platform/ports/PropertyBag.h"
#include "platform/ports/Screen.h"
#include "platform/ports/Spreadsheet.h"
#include "platform/ports/TableFiles.h"
#include "platform/sql/Database.h"
#include "platform/text/Date.h"

namespace koru {

/// The current date and time.
class Clock {
 public:
  virtual ~Clock() = default;
  /// Today in the user's time zone.
  [[nodiscard]] virtual Date Today() const = 0;
  /// The time, from which the form says how long ago something was: the machine's, unless a host has another.
  [[nodiscard]] virtual std::chrono::system_clock::time_point Now() const {
    return std::chrono::system_clock::now();
  }
};

/// The file system of the machine that runs the form.
class FileSystem {
 public:
  virtual ~FileSystem() = default;
  /// Whether `path` names an existing file (not a folder).
  [[nodiscard]] virtual bool FileExists(const std::string& path) const = 0;
};

/// The services that the component needs from its host. Each must outlive the component, which calls them on
/// the thread that calls it. Whatever a service throws ends the operation; as a std::exception it is shown to
/// the user.
struct HostServices {
  DatabaseConnector& databases;
  ComponentRegistry& components;
  Screen& screen;
  Clock& clock;
  FileSystem& files;
  SpreadsheetStarter& spreadsheets;
  DraftStore* drafts = nullptr;  ///< without one, no draft of an entry is kept
  /// Runs a write of a draft once, in any thread, so that the user does not wait for the disk. Empty: it runs
  /// at once.
  std::function<void(std::packaged_task<void()> write)> runDraftWrite = {};
  /// Asked before a final registration, after the user's right to it: false, and it does not begin. A host
  /// can take a backup here. Not asked when empty.
  std::function<bool()> beforeRegistration = {};
  /// The user's settings of the forms, by key; each Write is kept at once. Without them, a setting lasts as
  /// long as its form.
  PropertyBag* preferences = nullptr;
  TableFiles* tables = nullptr;  ///< without them, no counts can come from files
};

}  // namespace koru
