#pragma once

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QWidget>

namespace koru::test {

/// A device that keeps the texts that are painted on it.
class PaintedTexts : public QPaintDevice {
 public:
  explicit PaintedTexts(QSize size) : size_(size) {}

  /// All texts that `widget` shows, painted anew.
  [[nodiscard]] static QStringList Of(QWidget& widget) {
    PaintedTexts device(widget.size());
    widget.render(&device);
    return device.engine_.texts;
  }

  [[nodiscard]] QPaintEngine* paintEngine() const override { return &engine_; }

 protected:
  [[nodiscard]] int metric(PaintDeviceMetric metric) const override {
    switch (metric) {
      case PdmWidth:
        return size_.width();
      case PdmHeight:
        return size_.height();
      case PdmDpiX:
      case PdmDpiY:
      case PdmPhysicalDpiX:
      case PdmPhysicalDpiY:
        return 96;
      case PdmNumColors:
        return 1 << 24;
      case PdmDepth:
        return 32;
      case PdmWidthMM:
        return size_.width() / 4;
      case PdmHeightMM:
        return size_.height() / 4;
      case PdmDevicePixelRatio:
        return 1;
      default:  // the ratio as a fraction
        return static_cast<int>(devicePixelRatioFScale());
    }
  }

 private:
  class Engine : public QPaintEngine {
   public:
    Engine() : QPaintEngine(AllFeatures) {}
    bool begin(QPaintDevice* /*device*/) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState& /*state*/) override {}
    void drawPixmap(const QRectF& /*to*/, const QPixmap& /*picture*/, const QRectF& /*from*/) override {}
    void drawPath(const QPainterPath& /*path*/) override {}
    void drawTextItem(const QPointF& /*at*/, const QTextItem& item) override { texts += item.text(); }
    [[nodiscard]] Type type() const override { return User; }
    QStringList texts;
  };

  QSize size_;
  mutable Engine engine_;
};

}  // namespace koru::test
