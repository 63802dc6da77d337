#include <gtest/gtest.h>

#include <optional>

#include "tests/browser/PageServer.h"
#include "tests/desktop/floor/camera/Barcodes.h"
#include "tests/desktop/floor/camera/CameraBrowser.h"

namespace koru::test {
namespace {

const QString kEan = QStringLiteral("626000000123");
const QString kOtherEan = QStringLiteral("626000000456");
const QString kCode = QStringLiteral("SHELF-42/b");
const QString kWasm = QStringLiteral("/page/vendor/zxing-wasm/reader/zxing_reader.wasm");

/// A bare page with a video, and the modules of the page that read it.
class CameraReading : public ::testing::Test {
 protected:
  CameraReading() {
    pages_.AddFolder(QStringLiteral("/page"), QStringLiteral(":/floor"));
    pages_.Add(QStringLiteral("/"), QStringLiteral("<!doctype html><link rel=icon href='data:,'>"
                                                   "<video id=video playsinline muted></video>"));
  }

  /// Opens the bare page in a browser whose camera sees the labels; `before` runs before its own scripts.
  void Look(const std::vector<Label>& labels, const QString& before = {}) {
    browser_.emplace(labels);
    if (!before.isEmpty()) {
      browser_->Command(QStringLiteral("Page.enable"));
      browser_->Command(QStringLiteral("Page.addScriptToEvaluateOnNewDocument"), {{"source", before}});
    }
    browser_->Open(pages_.Url(QStringLiteral("/")));
  }
  void Scan(const QString& inSight = {}) { Scan(*browser_, inSight); }
  static void Scan(Browser& browser, const QString& inSight = {}) {
    browser.Run(QStringLiteral("window.codes = []; window.end = ''; window.control = new AbortController();"
                               "const { scan } = await import('/page/camera.js');"
                               "scan(video, (code) => codes.push(code), control.signal, arguments[0])"
                               ".then(() => { end = 'released'; }, (error) => { end = error.name; });"),
                {inSight});
  }
  QString FirstCode() {
    browser_->WaitFor(QStringLiteral("codes.length > 0 || end"), QStringLiteral("a barcode"));
    return browser_->Run(QStringLiteral("return codes[0] ?? end")).toString();
  }
  /// What the camera reads of one label.
  QString Read(const Label& label, const QString& before = {}) {
    Look({label}, before);
    Scan();
    return FirstCode();
  }

  PageServer pages_;
  std::optional<CameraBrowser> browser_;
};

TEST_F(CameraReading, An_EAN_13_is_read_near_and_from_afar) {
  for (const double module : {6., 4., 3.}) {
    EXPECT_EQ(Read({.bars = Ean13Bars(kEan), .module = module}), Ean13Text(kEan)) << module;
  }
}

TEST_F(CameraReading, An_EAN_13_is_read_at_any_tilt) {
  for (const double tilt : {18., 45., 180.}) {
    EXPECT_EQ(Read({.bars = Ean13Bars(kEan), .tilt = tilt}), Ean13Text(kEan)) << tilt;
  }
}

TEST_F(CameraReading, An_EAN_13_is_read_in_a_dark_cellar) {
  EXPECT_EQ(Read({.bars = Ean13Bars(kEan), .light = 0.25}), Ean13Text(kEan));
}

TEST_F(CameraReading, A_Code_128_is_read_at_any_tilt) {
  for (const double tilt : {0., 25., 90., 200.}) {
    EXPECT_EQ(Read({.bars = Code128Bars(kCode), .module = 3, .tilt = tilt}), kCode) << tilt;
  }
}

TEST_F(CameraReading, Of_two_barcodes_the_one_nearest_to_the_middle_is_meant) {
  Look({{.bars = Ean13Bars(kEan), .module = 3, .middle = {640, 150}},
        {.bars = Ean13Bars(kOtherEan), .module = 3, .middle = {640, 410}}});
  Scan();
  EXPECT_EQ(FirstCode(), Ean13Text(kOtherEan));
}

TEST_F(CameraReading, A_barcode_counts_at_its_second_reading_and_again_after_it_was_out_of_sight) {
  Look({});
  const auto counted = [&](const QString& readings, const QString& inSight = {}) {
    return browser_
        ->Run(QStringLiteral("const { Readings } = await import('/page/readings.js');"
                             "const readings = new Readings(arguments[1], 0);"
                             "return arguments[0].split(' ').map((reading) => reading.split('@'))"
                             ".filter(([text, now]) => readings.take(text, Number(now)))"
                             ".map((reading) => reading.join('@')).join(' ')"),
              {readings, inSight})
        .toString();
  };
  EXPECT_EQ(counted(QStringLiteral("A@0 A@100")), QStringLiteral("A@100"));
  EXPECT_EQ(counted(QStringLiteral("A@0 @50 A@100")), QStringLiteral("A@100"));
  EXPECT_EQ(counted(QStringLiteral("A@0 B@50 A@100 B@150")), QString());
  EXPECT_EQ(counted(QStringLiteral("A@0 A@2001")), QString());
  EXPECT_EQ(counted(QStringLiteral("A@0 A@100 A@2000 A@4000 A@6000")), QStringLiteral("A@100"));
  EXPECT_EQ(counted(QStringLiteral("A@0 A@100 A@2600 A@2700")), QStringLiteral("A@100 A@2700"));
  EXPECT_EQ(counted(QStringLiteral("A@0 A@100 B@200 B@300 A@400 A@500")),
            QStringLiteral("A@100 B@300 A@500"));
  EXPECT_EQ(counted(QStringLiteral("A@100 A@200 A@2800 A@2900"), QStringLiteral("A")),
            QStringLiteral("A@2900"));
}

TEST_F(CameraReading, A_barcode_that_is_still_in_sight_does_not_count_again) {
  Look({{.bars = Ean13Bars(kEan)}});
  Scan(Ean13Text(kEan));
  browser_->WaitFor(QStringLiteral("video.currentTime > 1"), QStringLiteral("a second of the camera"));
  EXPECT_EQ(browser_->Run(QStringLiteral("return codes.length")).toInt(), 0);
  EXPECT_EQ(browser_->Run(QStringLiteral("return end")).toString(), QString());
}

TEST_F(CameraReading, The_reader_is_loaded_only_when_a_scan_begins) {
  Look({{.bars = Ean13Bars(kEan)}});
  const QString can = QStringLiteral("return import('/page/camera.js').then(({ canScan }) => canScan())");
  EXPECT_TRUE(browser_->Run(can).toBool());
  EXPECT_EQ(pages_.Requests(kWasm), 0);
  Scan();
  EXPECT_EQ(FirstCode(), Ean13Text(kEan));
  EXPECT_EQ(pages_.Requests(kWasm), 1);
}

TEST_F(CameraReading, The_end_of_a_scan_releases_the_camera) {
  Look({{.bars = Ean13Bars(kEan)}});
  Scan();
  FirstCode();
  browser_->Run(QStringLiteral("window.track = video.srcObject.getVideoTracks()[0]; control.abort()"));
  browser_->WaitFor(QStringLiteral("end"));
  EXPECT_EQ(browser_->Run(QStringLiteral("return [end, track.readyState, video.srcObject]")).toArray(),
            (QJsonArray{"released", "ended", QJsonValue()}));
}

TEST_F(CameraReading, A_scan_that_ends_before_the_camera_has_begun_releases_it_too) {
  Look({{.bars = Ean13Bars(kEan)}},
       QStringLiteral("const own = navigator.mediaDevices.getUserMedia.bind(navigator.mediaDevices);"
                      "navigator.mediaDevices.getUserMedia = async (wanted) => {"
                      "  const stream = await own(wanted);"
                      "  window.track = stream.getVideoTracks()[0];"
                      "  window.control.abort();"
                      "  return stream;"
                      "};"));
  Scan();
  browser_->WaitFor(QStringLiteral("end"));
  EXPECT_EQ(browser_->Run(QStringLiteral("return [end, track.readyState, video.srcObject]")).toArray(),
            (QJsonArray{"released", "ended", QJsonValue()}));
}

TEST_F(CameraReading, A_camera_that_is_unplugged_or_refused_is_reported) {
  Look({{.bars = Ean13Bars(kEan)}});
  Scan();
  FirstCode();
  browser_->Run(QStringLiteral("video.srcObject.getVideoTracks()[0].dispatchEvent(new Event('ended'))"));
  browser_->WaitFor(QStringLiteral("end"));
  EXPECT_EQ(browser_->Run(QStringLiteral("return end")).toString(), QStringLiteral("NotReadableError"));

  Browser other({.arguments = {QStringLiteral("--use-fake-device-for-media-stream"),
                               QStringLiteral("--deny-permission-prompts")}});
  other.Open(pages_.Url(QStringLiteral("/")));
  Scan(other);
  other.WaitFor(QStringLiteral("end"));
  EXPECT_EQ(other.Run(QStringLiteral("return end")).toString(), QStringLiteral("NotAllowedError"));
}

/// A detector of the browser's own that reads the formats and finds the barcode OWN, or fails.
QString Detector(const QString& formats, const QString& found) {
  return QStringLiteral(
             "window.BarcodeDetector = class {"
             "  static async getSupportedFormats() { return %1; }"
             "  constructor({ formats }) { window.asked = formats; }"
             "  async detect(video) { %2 }"
             "};")
      .arg(formats, found);
}

TEST_F(CameraReading, The_browsers_own_detector_is_preferred) {
  const QString found = QStringLiteral(
      "return [{ rawValue: 'FAR', boundingBox: { x: 0, y: 0, width: 10, height: 10 } },"
      "{ rawValue: 'OWN', boundingBox: { x: 600, y: 300, width: 80, height: 60 } }];");
  EXPECT_EQ(Read({.bars = Ean13Bars(kEan)}, Detector(QStringLiteral("['ean_13', 'qr_code']"), found)),
            QStringLiteral("OWN"));
  EXPECT_EQ(browser_->Run(QStringLiteral("return asked")).toArray(), QJsonArray{"ean_13"});
  EXPECT_EQ(pages_.Requests(kWasm), 0);
}

TEST_F(CameraReading, An_own_detector_that_reads_no_formats_is_replaced) {
  EXPECT_EQ(Read({.bars = Ean13Bars(kEan)}, Detector(QStringLiteral("[]"), QStringLiteral("return [];"))),
            Ean13Text(kEan));
}

TEST_F(CameraReading, An_own_detector_that_fails_is_replaced) {
  EXPECT_EQ(
      Read({.bars = Ean13Bars(kEan)},
           Detector(QStringLiteral("['ean_13']"), QStringLiteral("throw new DOMException('no service');"))),
      Ean13Text(kEan));
}

}  // namespace
}  // namespace koru::test
