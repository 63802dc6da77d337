#pragma once

#include <string>

#include "platform/ports/Components.h"
#include "platform/ports/Screen.h"
#include "platform/ports/Spreadsheet.h"
#include "platform/sql/Database.h"
#include "platform/text/Date.h"

namespace koru {

/// What day it is.
class Clock {
 public:
  virtual ~Clock() = default;
  /// Today in the person's time zone.
  [[nodiscard]] virtual Date Today() const = 0;
};

/// The files of the machine that the form runs on.
class FileSystem {
 public:
  virtual ~FileSystem() = default;
  /// Whether `path` names a file (not a folder) that is there.
  [[nodiscard]] virtual bool FileExists(const std::string& path) const = 0;
};

/// All that the component needs from where it runs. Each must outlive the component.
struct HostServices {
  DatabaseConnector& databases;
  ComponentRegistry& components;
  Screen& screen;
  Clock& clock;
  FileSystem& files;
  SpreadsheetStarter& spreadsheets;
};

}  // namespace koru
