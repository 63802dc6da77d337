#pragma once

#include "host/IniPropertyBag.h"

namespace koru {

/// The user's settings of the forms, as the section `preferences` of the settings file, which is written with
/// each of them. Write throws InputError when the file cannot be written.
class Preferences : public PropertyBag {
 public:
  /// `settings` must outlive the object.
  explicit Preferences(IniFile& settings) : settings_(settings), section_(settings, "preferences") {}

  [[nodiscard]] PropertyValue Read(std::string_view key, const PropertyValue& defaultValue) const override {
    return section_.Read(key, defaultValue);
  }
  void Write(std::string_view key, const PropertyValue& value, const PropertyValue& defaultValue) override {
    section_.Write(key, value, defaultValue);
    settings_.Write();
  }

 private:
  IniFile& settings_;
  IniPropertyBag section_;
};

}  // namespace koru
