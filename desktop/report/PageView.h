#pragma once

#include <QAbstractScrollArea>
#include <QCache>
#include <QPixmap>

#include "desktop/report/ReportDocument.h"

namespace koru {

/// The pages of a report one below the other on a grey ground. Only what is in sight is painted.
class PageView : public QAbstractScrollArea {
  Q_OBJECT

 public:
  /// `report` must outlive the view.
  explicit PageView(const ReportDocument& report);

  /// How large a page is shown: 1 is as large as on paper. Kept between kMinZoom and kMaxZoom; what is in
  /// the middle stays there, and so does the top of the first page at the top.
  static constexpr double kMinZoom = 0.25;
  static constexpr double kMaxZoom = 4;
  [[nodiscard]] double Zoom() const { return zoom_; }
  void SetZoom(double zoom);
  /// As wide as the window.
  void FitWidth();

  /// The page in the upper half of the view, from 0.
  [[nodiscard]] int CurrentPage() const;
  void GoToPage(int page);

 signals:
  /// Another page, or the zoom.
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
