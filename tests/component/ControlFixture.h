#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "component/comInvCounting.h"
#include "platform/sql/DatabaseError.h"
#include "platform/text/Errors.h"
#include "tests/platform/controls/QuietScreen.h"

namespace koru {

/// A property store that keeps the order of writing and of reading.
class MapBag : public PropertyBag {
 public:
  [[nodiscard]] PropertyValue Read(std::string_view key, const PropertyValue& defaultValue) const override {
    read.emplace_back(key);
    const auto found = values.find(std::string(key));
    return found == values.end() ? defaultValue : found->second;
  }
  void Write(std::string_view key, const PropertyValue& value, const PropertyValue& defaultValue) override {
    written.emplace_back(key);
    if (value != defaultValue) values[std::string(key)] = value;
  }

  std::map<std::string, PropertyValue> values;
  mutable std::vector<std::string> read;
  std::vector<std::string> written;
};

/// A control on a host that notes what is reported to it, where every database refuses to be opened.
class ControlFixture : public testing::Test, public ControlHost {
 protected:
  [[nodiscard]] koru::Font AmbientFont() const override { return {"Tahoma", 9, false, false}; }
  void PropertyChanged(std::string_view key) override { reported.emplace_back(key); }

  class NoDatabases : public DatabaseConnector {
   public:
    std::unique_ptr<Database> Connect(const std::string& connectionText) override {
      asked.push_back(connectionText);
      throw DatabaseError("no such database", 1, {});
    }
    std::vector<std::string> asked;
  };
  class FixedDay : public Clock {
   public:
    [[nodiscard]] Date Today() const override { return std::chrono::year{2025} / 3 / 21; }
  };
  class NoFiles : public FileSystem {
   public:
    [[nodiscard]] bool FileExists(const std::string& /*path*/) const override { return false; }
  };
  class NoSpreadsheets : public SpreadsheetStarter {
   public:
    [[nodiscard]] std::unique_ptr<Spreadsheet> NewWorkbook() override { throw InputError("no spreadsheet"); }
  };

  std::vector<std::string> reported;
  NoDatabases databases;
  ComponentRegistry components;
  QuietScreen screen;
  FixedDay clock;
  NoFiles files;
  NoSpreadsheets spreadsheets;
  comInvCounting control{*this, HostServices{databases, components, screen, clock, files, spreadsheets}};
};

}  // namespace koru
