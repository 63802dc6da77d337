#pragma once

#include <QAbstractScrollArea>
#include <QCache>
#include <QPixmap>

#include "siblings/report/ReportDocument.h"

namespace koru {

/// The pages of a report, one below the other on a grey background. Only visible pages are painted.
class PageView : public QAbstractScrollArea {
  Q_OBJECT

 public:
  /// `report` must outlive the view.
  explicit PageView(const ReportDocument& report);

  /// The zoom factor: 1 is the size on paper. SetZoom limits it to kMinZoom..kMaxZoom and keeps the centre of
  /// the view, or the top of the first page, in place.
  static constexpr double kMinZoom = 0.25;
  static constexpr double kMaxZoom = 4;
  [[nodiscard]] double Zoom() const { return zoom_; }
  void SetZoom(double zoom);
  /// Fits the page width to the window.
  void FitWidth();

  /// The index of the page in the upper half of the view.
  [[nodiscard]] int CurrentPage() const;
  void GoToPage(int page);

 signals:
  /// Emitted after the current page or the zoom has changed.
  void Moved();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  [[nodiscard]] double PixelsPerMm() const;
  [[nodiscard]] QSize PageSize() const;
  [[nodiscard]] int PageStep() const;
  [[nodiscard]] int PageCount() const { return static_cast<int>(report_.Pages().size()); }
  void UpdateScrollBars();
  [[nodiscard]] QPixmap Picture(int page);

  const ReportDocument& report_;
  double zoom_ = 1;
  bool fitsWidth_ = true;
  QCache<int, QPixmap> pictures_;
};

}  // namespace koru
