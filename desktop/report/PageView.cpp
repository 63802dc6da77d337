#include "desktop/report/PageView.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "desktop/report/ReportPainter.h"

namespace koru {
namespace {

constexpr double kMmPerInch = 25.4;
constexpr int kGap = 12;  ///< pixels around pages
constexpr int kKeptPictures = 6;
constexpr double kWheelStep = 1.1;

}  // namespace

PageView::PageView(const ReportDocument& report) : report_(report), pictures_(kKeptPictures) {
  setObjectName(QStringLiteral("pages"));
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setBackgroundRole(QPalette::Dark);
  viewport()->setAutoFillBackground(true);
}

double PageView::PixelsPerMm() const { return logicalDpiX() / kMmPerInch * zoom_; }

QSize PageView::PageSize() const {
  const ReportTemplate& page = report_.Template();
  return {qRound(page.pageWidth * PixelsPerMm()), qRound(page.pageHeight * PixelsPerMm())};
}

int PageView::PageStep() const { return PageSize().height() + kGap; }

void PageView::SetZoom(double zoom) {
  fitsWidth_ = false;
  const bool atTop = verticalScrollBar()->value() == 0;
  const double bounded = std::clamp(zoom, kMinZoom, kMaxZoom);
  const double middle =
      (verticalScrollBar()->value() + viewport()->height() / 2.0) / std::max(1, PageStep() * PageCount());
  zoom_ = bounded;
  pictures_.clear();
  UpdateScrollBars();
  const double top = middle * PageStep() * PageCount() - viewport()->height() / 2.0;
  verticalScrollBar()->setValue(atTop ? 0 : qRound(top));
  viewport()->update();
  emit Moved();
}

void PageView::FitWidth() {
  const double free = viewport()->width() - 2.0 * kGap;
  SetZoom(free / (report_.Template().pageWidth * logicalDpiX() / kMmPerInch));
  fitsWidth_ = true;
}

int PageView::CurrentPage() const {
  const int y = verticalScrollBar()->value() + viewport()->height() / 2;
  return std::clamp(y / std::max(1, PageStep()), 0, PageCount() - 1);
}

void PageView::GoToPage(int page) {
  verticalScrollBar()->setValue(std::clamp(page, 0, PageCount() - 1) * PageStep());
}

void PageView::UpdateScrollBars() {
  const QSize page = PageSize();
  const int width = page.width() + 2 * kGap - viewport()->width();
  const int height = PageStep() * PageCount() + kGap - viewport()->height();
  QScrollBar& across = *horizontalScrollBar();  // 0 is the right edge, where Persian readers start
  across.setRange(0, std::max(0, width));
  across.setPageStep(viewport()->width());
  across.setSingleStep(20);
  verticalScrollBar()->setRange(0, std::max(0, height));
  verticalScrollBar()->setPageStep(viewport()->height());
  verticalScrollBar()->setSingleStep(40);
}

QPixmap PageView::Picture(int page) {
  if (const QPixmap* const known = pictures_.object(page)) return *known;
  QPixmap picture(PageSize() * devicePixelRatioF());
  picture.setDevicePixelRatio(devicePixelRatioF());
  picture.fill(Qt::white);
  {
    QPainter painter(&picture);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    PaintReportPage(painter, report_, static_cast<std::size_t>(page), PixelsPerMm());
  }
  pictures_.insert(page, new QPixmap(picture));  // NOLINT(cppcoreguidelines-owning-memory): the cache owns it
  return picture;
}

void PageView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(viewport());
  const int top = verticalScrollBar()->value();
  const QScrollBar& across = *horizontalScrollBar();
  const int left =
      std::max(kGap, (viewport()->width() - PageSize().width()) / 2) + across.value() - across.maximum();
  const int first = std::clamp((top - kGap) / PageStep(), 0, PageCount() - 1);
  for (int page = first; page < PageCount(); ++page) {
    const int y = kGap + page * PageStep() - top;
    if (y > viewport()->height()) break;
    painter.drawPixmap(left, y, Picture(page));
  }
}

void PageView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  if (fitsWidth_) FitWidth();
  UpdateScrollBars();
}

void PageView::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_PageDown:
      return GoToPage(CurrentPage() + 1);
    case Qt::Key_PageUp:
      return GoToPage(CurrentPage() - 1);
    case Qt::Key_Home:
      return GoToPage(0);
    case Qt::Key_End:
      return GoToPage(PageCount() - 1);
    default:
      QAbstractScrollArea::keyPressEvent(event);
  }
}

void PageView::wheelEvent(QWheelEvent* event) {
  if (!event->modifiers().testFlag(Qt::ControlModifier)) return QAbstractScrollArea::wheelEvent(event);
  SetZoom(event->angleDelta().y() > 0 ? zoom_ * kWheelStep : zoom_ / kWheelStep);
  event->accept();
}

void PageView::scrollContentsBy(int /*dx*/, int /*dy*/) {
  viewport()->update();
  emit Moved();
}

}  // namespace koru
