#pragma once

#include <QPointF>
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

/// A video file for Chromium's made camera, in which nothing moves: 1280x720 pixels, ten frames a second.
class CameraVideo {
 public:
  /// Writes the file. Throws std::runtime_error when it cannot.
  CameraVideo(QString file, const std::vector<Label>& labels);
  [[nodiscard]] const QString& File() const { return file_; }

 private:
  QString file_;
};

}  // namespace koru::test
