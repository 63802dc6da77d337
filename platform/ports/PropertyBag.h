#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace koru {

/// A font as a host hands it over; size in points.
struct Font {
  std::string name;
  double size = 0;
  bool bold = false;
  bool italic = false;

  friend bool operator==(const Font&, const Font&) = default;
};

using PropertyValue = std::variant<bool, std::int32_t, std::string, Font>;

/// A host's store of a control's properties.
class PropertyBag {
 public:
  virtual ~PropertyBag() = default;
  /// What is stored under the key, or `defaultValue` when nothing is. The answer has the default's kind;
  /// throws InputError naming the key when what is stored cannot be read as that kind.
  [[nodiscard]] virtual PropertyValue Read(std::string_view key, const PropertyValue& defaultValue) const = 0;
  /// Stores the value; a value equal to `defaultValue` is not stored.
  virtual void Write(std::string_view key, const PropertyValue& value, const PropertyValue& defaultValue) = 0;
};

/// What a control knows of the screen that hosts it.
class ControlHost {
 public:
  virtual ~ControlHost() = default;
  [[nodiscard]] virtual Font AmbientFont() const = 0;
  /// The property stored under `key` has changed.
  virtual void PropertyChanged(std::string_view key) = 0;
};

}  // namespace koru
