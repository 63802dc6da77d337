#pragma once

#include <map>
#include <string>

#include "platform/ports/PropertyBag.h"
#include "platform/text/Errors.h"

namespace koru::test {

/// The user's settings of the windows, in memory.
class KeptTexts : public PropertyBag {
 public:
  [[nodiscard]] PropertyValue Read(std::string_view key, const PropertyValue& defaultValue) const override {
    if (damaged) throw InputError("not readable");
    const auto found = values.find(key);
    return found == values.end() ? defaultValue : found->second;
  }
  void Write(std::string_view key, const PropertyValue& value, const PropertyValue& /*default*/) override {
    if (damaged) throw InputError("not writable");
    values.insert_or_assign(std::string(key), value);
    ++writes;
  }
  std::map<std::string, PropertyValue, std::less<>> values;
  bool damaged = false;
  int writes = 0;
};

}  // namespace koru::test
