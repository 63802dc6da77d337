#include "tests/desktop/floor/camera/CameraVideo.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <random>
#include <stdexcept>
#include <utility>

namespace koru::test {
namespace {

constexpr QSize kSize(1280, 720);
constexpr int kTable = 120;
constexpr int kPaper = 225;
constexpr int kInk = 30;

int Lit(int grey, double light) { return int(grey * light) + int(14 * (1 - light)); }

QColor Grey(int grey, double light) {
  const int lit = Lit(grey, light);
  return {lit, lit, lit};
}

void Paint(QPainter& painter, const Label& label) {
  const double width = double(label.bars.size()) * label.module;
  const double height = 45 * label.module;
  painter.save();
  painter.translate(label.middle);
  painter.rotate(label.tilt);
  const double quiet = 12 * label.module;
  painter.fillRect(QRectF(-width / 2 - quiet, -height / 2 - quiet, width + 2 * quiet, height + 2 * quiet),
                   Grey(kPaper, label.light));
  for (qsizetype i = 0; i < label.bars.size(); ++i) {
    if (label.bars[i] != QLatin1Char('1')) continue;
    painter.fillRect(QRectF(-width / 2 + double(i) * label.module, -height / 2, label.module, height),
                     Grey(kInk, label.light));
  }
  painter.restore();
}

/// A lens that is not quite in focus: each pixel is the mean of its neighbours.
void Blur(QImage& picture) {
  const QImage sharp = picture;
  for (int y = 1; y + 1 < picture.height(); ++y) {
    uchar* const out = picture.scanLine(y);
    for (int x = 1; x + 1 < picture.width(); ++x) {
      int sum = 0;
      for (int dy = -1; dy <= 1; ++dy) {
        const uchar* const line = sharp.constScanLine(y + dy);
        sum += line[x - 1] + 2 * line[x] + line[x + 1];
      }
      out[x] = uchar(sum / 12);
    }
  }
}

void AddNoise(QImage& picture) {
  std::mt19937 random(7);
  for (int y = 0; y < picture.height(); ++y) {
    uchar* const line = picture.scanLine(y);
    for (int x = 0; x < picture.width(); ++x)
      line[x] = uchar(std::clamp(line[x] + int(random() % 13) - 6, 0, 255));
  }
}

void Write(QFile& file, const QByteArray& bytes) {
  if (file.write(bytes) != bytes.size()) throw std::runtime_error(file.errorString().toStdString());
}

/// What the camera sees: the labels on a table, blurred and noisy as a lens and a sensor make it.
QImage CameraFrame(const std::vector<Label>& labels) {
  QImage scene(kSize, QImage::Format_RGB32);
  const double light = labels.empty() ? 1 : labels.front().light;
  scene.fill(Grey(kTable, light));
  {
    QPainter painter(&scene);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const Label& label : labels) Paint(painter, label);
  }
  QImage frame = scene.convertToFormat(QImage::Format_Grayscale8);
  Blur(frame);
  AddNoise(frame);
  return frame;
}

}  // namespace

CameraVideo::CameraVideo(QString file, const std::vector<Label>& labels) : file_(std::move(file)) {
  QFile out(file_);
  if (!out.open(QIODevice::WriteOnly)) throw std::runtime_error(out.errorString().toStdString());
  Write(out, QStringLiteral("YUV4MPEG2 W%1 H%2 F10:1 Ip A1:1 C420jpeg\nFRAME\n")
                 .arg(kSize.width())
                 .arg(kSize.height())
                 .toUtf8());
  const QImage frame = CameraFrame(labels);
  for (int y = 0; y < kSize.height(); ++y) {
    Write(out, QByteArray::fromRawData(reinterpret_cast<const char*>(frame.constScanLine(y)), kSize.width()));
  }
  Write(out, QByteArray(kSize.width() * kSize.height() / 2, char(128)));  // both planes of colour: none
}

}  // namespace koru::test
