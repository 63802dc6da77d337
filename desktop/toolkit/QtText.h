#pragma once

#include <QColor>
#include <QString>
#include <cstdint>
#include <string>
#include <string_view>

namespace koru {

[[nodiscard]] inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

[[nodiscard]] inline std::string FromQt(const QString& text) { return text.toStdString(); }

/// Converts a colour of the suite, 0x00BBGGRR.
[[nodiscard]] inline QColor ColorOf(std::uint32_t color) {
  return {static_cast<int>(color & 0xFFU), static_cast<int>((color >> 8U) & 0xFFU),
          static_cast<int>((color >> 16U) & 0xFFU)};
}

}  // namespace koru
