#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace koru {

/// A font from the host; `size` in points.
struct Font {
  std::string name;
  double size = 0;
  bool bold = false;
  bool italic = false;

  friend bool operator==(const Font&, const Font&) = default;
};

using PropertyValue = std::variant<bool, std::int32_t, std::string, Font>;

/// The host's store for the properties of a control.
class PropertyBag {
 public:
  virtual ~PropertyBag() = default;
  /// The value stored under `key`, or `defaultValue` when there is none. The result has the type of
  /// `defaultValue`. Throws InputError with the key when the stored value cannot be read as that type.
  [[nodiscard]] virtual PropertyValue Read(std::string_view key, const PropertyValue& defaultValue) const = 0;
  /// Stores the value; does not store a value equal to `defaultValue`.
  virtual void Write(std::string_view key, const PropertyValue& value, const PropertyValue& defaultValue) = 0;
};

/// The host's screen as a control sees it.
class ControlHost {
 public:
  virtual ~ControlHost() = default;
  [[nodiscard]] virtual Font AmbientFont() const = 0;
  /// Called after the property stored under `key` has changed.
  virtual void PropertyChanged(std::string_view key) = 0;
};

}  // namespace koru
