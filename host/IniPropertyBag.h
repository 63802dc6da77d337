#pragma once

#include "host/IniFile.h"
#include "platform/ports/PropertyBag.h"

namespace koru {

/// A control's properties as one section of a settings file, under their store keys. A Boolean is written as
/// 0 or -1 (the suite's True), a font as `name;size;bold;italic`. A value of another kind throws
/// InputError naming key, file and line. Writing changes the contents in memory; IniFile::Write writes them
/// to the disk.
class IniPropertyBag : public PropertyBag {
 public:
  /// `file` must outlive the bag.
  IniPropertyBag(IniFile& file, std::string section) : file_(file), section_(std::move(section)) {}

  [[nodiscard]] PropertyValue Read(std::string_view key, const PropertyValue& defaultValue) const override;
  void Write(std::string_view key, const PropertyValue& value, const PropertyValue& defaultValue) override;

 private:
  IniFile& file_;
  std::string section_;
};

}  // namespace koru
