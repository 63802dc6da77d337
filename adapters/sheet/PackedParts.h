#pragma once

#include <QIODevice>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

struct zip;

namespace koru {

/// The parts of a ZIP file in memory. What a part unpacks to is limited, so that a small file cannot fill the
/// memory or run for hours.
class PackedParts {
 public:
  /// `bytes` must outlive the object. Throws InputError if they are no whole ZIP file, have too many parts,
  /// or unpack to too much.
  explicit PackedParts(std::string_view bytes);
  PackedParts(const PackedParts&) = delete;
  PackedParts& operator=(const PackedParts&) = delete;
  ~PackedParts() = default;

  [[nodiscard]] bool Has(const std::string& name) const;
  /// The size of a part when it is unpacked, as the file says; 0 if there is no such part.
  [[nodiscard]] std::int64_t SizeOf(const std::string& name) const;
  /// The part, open for reading from its beginning; it must not outlive the object. Reading fails where the
  /// part is damaged. Throws InputError if there is no such part or it cannot be unpacked.
  [[nodiscard]] std::unique_ptr<QIODevice> Open(const std::string& name) const;

 private:
  std::unique_ptr<zip, void (*)(zip*)> archive_;
};

}  // namespace koru
