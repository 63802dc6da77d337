#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "component/comInvCounting.h"
#include "tests/support/ComponentFixture.h"

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

/// A control on a host where every connection is refused.
class ControlFixture : public testing::Test, protected test::NoDatabaseFixture {
 protected:
  comInvCounting control{*this, Services()};
};

}  // namespace koru
