#pragma once

#include <QTemporaryDir>
#include <memory>
#include <vector>

#include "tests/browser/Browser.h"
#include "tests/desktop/floor/camera/CameraVideo.h"

namespace koru::test {

/// A browser on a device with a camera, which the page may use without a question.
class CameraBrowser : public Browser {
 public:
  /// The camera sees the labels all the time; `settings` may have arguments of their own.
  explicit CameraBrowser(const std::vector<Label>& labels, BrowserSettings settings = {})
      : CameraBrowser(std::make_unique<QTemporaryDir>(), labels, std::move(settings)) {}

 private:
  CameraBrowser(std::unique_ptr<QTemporaryDir> folder, const std::vector<Label>& labels,
                BrowserSettings settings)
      : Browser(WithCamera(CameraVideo(folder->filePath(QStringLiteral("camera.y4m")), labels),
                           std::move(settings))),
        folder_(std::move(folder)) {}

  static BrowserSettings WithCamera(const CameraVideo& video, BrowserSettings settings) {
    settings.arguments += {QStringLiteral("--use-fake-device-for-media-stream"),
                           QStringLiteral("--use-fake-ui-for-media-stream"),
                           QStringLiteral("--use-file-for-fake-video-capture=") + video.File()};
    return settings;
  }

  std::unique_ptr<QTemporaryDir> folder_;
};

}  // namespace koru::test
