#pragma once

#include <QColor>
#include <QImage>
#include <QPalette>
#include <algorithm>
#include <cmath>
#include <map>

namespace koru::test {

/// The palette that a light or a dark desktop gives its programs.
inline QPalette DesktopPalette(bool dark) {
  return dark ? QPalette(QColor(0x2B, 0x2B, 0x2B), QColor(0x2B, 0x2B, 0x2B))
              : QPalette(QColor(0xF0, 0xF0, 0xF0), QColor(0xF0, 0xF0, 0xF0));
}

/// The relative luminance of sRGB, 0 to 1.
inline double Luminance(const QColor& color) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// The contrast of two colours, 1 to 21, as accessibility guidelines define it.
inline double Contrast(const QColor& one, const QColor& other) {
  const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

/// The most frequent colour of a picture with a text, and the one that differs most from it.
struct Grounds {
  QColor ground;
  QColor text;
};
inline Grounds GroundsOf(const QImage& image) {
  std::map<QRgb, int> counts;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) ++counts[image.pixel(x, y)];
  }
  Grounds found;
  found.ground =
      QColor(std::ranges::max_element(counts, {}, [](const auto& pair) { return pair.second; })->first);
  found.text = QColor(std::ranges::max_element(counts, {}, [&](const auto& pair) {
                        return Contrast(QColor(pair.first), found.ground);
                      })->first);
  return found;
}

}  // namespace koru::test
