#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "floor/FloorFigures.h"

namespace koru {

// What devices send, as JSON. Each reader gives nothing for a text that is not wholly what it reads: another
// type or range, a field that is missing, an id that is none, a text that is too long or has the character 0.
// Fields that it does not know are left aside.

inline constexpr std::size_t kMaxItems = 500;          ///< figures of a request
inline constexpr std::size_t kMaxBarcodeLength = 200;  ///< in bytes
inline constexpr std::size_t kMaxNameBytes = 400;
inline constexpr std::size_t kMaxTypedLength = 400;  ///< of a figure and what was seen before it, in bytes

struct HelloRequest {
  std::string device;
  std::string name;
};

struct FiguresRequest {
  std::string device;
  std::vector<FloorFigure> figures;
};

struct UnknownRequest {
  std::string device;
  std::string barcode;
};

struct ChangesRequest {
  std::string device;
  std::int64_t since = 0;
};

[[nodiscard]] std::optional<HelloRequest> ReadHello(std::string_view json);
[[nodiscard]] std::optional<FiguresRequest> ReadFigures(std::string_view json);
[[nodiscard]] std::optional<UnknownRequest> ReadUnknown(std::string_view json);
/// From the values of a query.
[[nodiscard]] std::optional<ChangesRequest> ReadChanges(std::optional<std::string_view> since,
                                                        std::optional<std::string_view> device);

}  // namespace koru
