#pragma once

#include <QFile>
#include <QImage>
#include <QString>
#include <vector>

namespace koru::test {

/// A label in front of the camera.
struct Label {
  QString bars;                 ///< one letter for each module, '1' for dark
  double module = 4;            ///< width of a module in pixels
  double tilt = 0;              ///< in degrees
  double light = 1;             ///< 1 by day, 0.2 in a cellar
  QPointF middle = {640, 360};  ///< in a frame of 1280x720 pixels
};

/// What the camera sees: the labels on a table, blurred and noisy as a lens and a sensor make it.
QImage CameraFrame(const std::vector<Label>& labels);

/// A video file for Chromium's made camera: 1280x720, ten frames a second, shown again and again.
class CameraVideo {
 public:
  explicit CameraVideo(const QString& file);
  /// Appends a frame so many tenths of a second.
  void Add(const QImage& frame, int tenths);
  [[nodiscard]] QString File() const { return file_.fileName(); }

 private:
  QFile file_;
};

}  // namespace koru::test
