#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <memory>

#include "tests/browser/Browser.h"
#include "tests/browser/PageServer.h"
#include "tests/desktop/floor/camera/Barcodes.h"
#include "tests/desktop/floor/camera/CameraVideo.h"

namespace koru::test {
namespace {

const QString kEan = QStringLiteral("626000000123");
const QString kCode = QStringLiteral("SHELF-42/b");

/// A bare page with a video, and the modules of the page that read it.
class CameraTest : public ::testing::Test {
 protected:
  CameraTest() {
    pages_.AddFolder(QStringLiteral("/page"), QStringLiteral(":/floor"));
    pages_.Add(QStringLiteral("/"),
               QStringLiteral("<!doctype html><video id=video playsinline muted></video>"));
  }

  /// Opens the bare page in a browser with a camera that sees the labels.
  Browser& Look(const std::vector<Label>& labels) {
    CameraVideo video(folder_.filePath(QStringLiteral("camera.y4m")));
    video.Add(CameraFrame(labels), 1);
    return LookAt(video);
  }
  Browser& LookAt(const CameraVideo& video) {
    browser_ = std::make_unique<Browser>(
        BrowserSettings{.arguments = {QStringLiteral("--use-fake-device-for-media-stream"),
                                      QStringLiteral("--use-fake-ui-for-media-stream"),
                                      QStringLiteral("--use-file-for-fake-video-capture=") + video.File()}});
    browser_->Open(pages_.Url(QStringLiteral("/")));
    return *browser_;
  }
  void Scan(const QString& inSight = {}) {
    browser_->Run(QStringLiteral("window.codes = []; window.end = ''; window.control = new AbortController();"
                                 "window.started = performance.now(); window.track = null;"
                                 "const { scan } = await import('/page/camera.js');"
                                 "scan(video, (code) => codes.push([code, performance.now() - started]), "
                                 "control.signal, arguments[0])"
                                 ".then(() => { end = 'released'; }, (error) => { end = error.name; });"),
                  {inSight});
  }
  QString FirstCode() {
    browser_->WaitFor(QStringLiteral("codes.length > 0 || end"), QStringLiteral("a barcode"));
    const QJsonArray code = browser_->Run(QStringLiteral("return codes[0] ?? [end, 0]")).toArray();
    RecordProperty("milliseconds", int(code[1].toDouble()));
    return code[0].toString();
  }

  PageServer pages_;
  QTemporaryDir folder_;
  std::unique_ptr<Browser> browser_;
};

TEST_F(CameraTest, An_EAN_13_is_read) {
  Look({{.bars = Ean13Bars(kEan)}});
  Scan();
  EXPECT_EQ(FirstCode(), Ean13Text(kEan));
}

TEST_F(CameraTest, A_tilted_EAN_13_is_read) {
  Look({{.bars = Ean13Bars(kEan), .tilt = 40}});
  Scan();
  EXPECT_EQ(FirstCode(), Ean13Text(kEan));
}

TEST_F(CameraTest, An_EAN_13_in_a_dark_cellar_is_read) {
  Look({{.bars = Ean13Bars(kEan), .light = 0.2}});
  Scan();
  EXPECT_EQ(FirstCode(), Ean13Text(kEan));
}

TEST_F(CameraTest, A_Code_128_is_read_upright_and_tilted) {
  for (const double tilt : {0., 25., 90., 200.}) {
    Look({{.bars = Code128Bars(kCode), .module = 3, .tilt = tilt}});
    Scan();
    EXPECT_EQ(FirstCode(), kCode) << tilt;
  }
}

}  // namespace
}  // namespace koru::test
