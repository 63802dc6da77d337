#include "desktop/report/ReportPainter.h"

#include <QApplication>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>
#include <QTextOption>
#include <map>
#include <utility>

#include "desktop/toolkit/QtText.h"

namespace koru {
namespace {

// Painting uses hundredths of a millimetre, so that line breaks are the same on every device.
constexpr double kUnitsPerMm = 100;
constexpr double kMmPerPoint = 25.4 / 72;
constexpr double kPadding = 0.8 * kUnitsPerMm;
constexpr double kHairline = 0.15 * kUnitsPerMm;
constexpr double kMinScale = 0.6;  ///< relative to the font size of the cell
constexpr double kShrinkStep = 0.1;
constexpr double kEndless = 1e6;  ///< wider than any paper
constexpr int kGround = 0xE6;

class PagePainter {
 public:
  PagePainter(QPainter& painter, const ReportDocument& report, std::size_t page)
      : painter_(painter), report_(report), page_(page) {}

  void Paint() {
    for (const PlacedBand& band : report_.Pages()[page_].bands) {
      double top = band.top * kUnitsPerMm;
      for (const ReportLine& line : report_.Template().Band(band.kind).lines) {
        PaintLine(line, band, top);
        top += line.height * kUnitsPerMm;
      }
    }
  }

 private:
  void PaintLine(const ReportLine& line, const PlacedBand& band, double top) {
    const ReportTemplate& report = report_.Template();
    double right = (report.pageWidth - report.marginRight) * kUnitsPerMm;
    for (const ReportCell& cell : line.cells) {
      const double width = cell.width * kUnitsPerMm;
      const QRectF area(right - width, top, width, line.height * kUnitsPerMm);
      PaintGround(cell, area);
      const QString text = ToQt(report_.CellText(cell, band, page_));
      if (!text.isEmpty()) PaintText(cell, area.adjusted(kPadding, 0, -kPadding, 0), text);
      right -= width;
    }
  }

  void PaintGround(const ReportCell& cell, const QRectF& area) {
    if (cell.shaded) painter_.fillRect(area, QColor(kGround, kGround, kGround));
    painter_.setPen(QPen(Qt::black, kHairline));
    if (cell.boxed) painter_.drawRect(area);
    if (cell.ruled) painter_.drawLine(area.bottomLeft(), area.bottomRight());
  }

  /// Wraps a text that is too long for its cell and reduces its font down to a readable size; elides what
  /// still does not fit.
  void PaintText(const ReportCell& cell, const QRectF& area, const QString& text) {
    const bool oneLine = !text.contains(QLatin1Char('\n'));
    for (double scale = 1; scale > kMinScale - kShrinkStep / 2; scale -= kShrinkStep) {
      const QFont& font = FontOf(cell, scale);
      if (oneLine && DrawIfItFits(cell, font, area, text)) return;
      const QRectF needed = QFontMetricsF(font).boundingRect(area, Qt::AlignVCenter | Qt::TextWordWrap, text);
      if (needed.height() <= area.height() && needed.width() <= area.width()) {
        return Draw(cell, font, area, text, QTextOption::WordWrap);
      }
    }
    const QFont& font = FontOf(cell, kMinScale);
    const QString line = QString(text).replace(QLatin1Char('\n'), QLatin1Char(' '));
    Draw(cell, font, area, QFontMetricsF(font).elidedText(line, Qt::ElideRight, area.width()),
         QTextOption::NoWrap);
  }

  /// Draws the text in one line if it fits, which most texts do; the shaping for the measurement is reused
  /// for painting.
  bool DrawIfItFits(const ReportCell& cell, const QFont& font, const QRectF& area, const QString& text) {
    QTextLayout layout(text, font, painter_.device());
    layout.setCacheEnabled(true);
    layout.setTextOption(OptionOf(cell, QTextOption::NoWrap));
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(kEndless);
    layout.endLayout();
    const double width = line.horizontalAdvance();
    if (width > area.width() || line.height() > area.height()) return false;
    const double left = cell.align == ReportAlign::Left     ? area.left()
                        : cell.align == ReportAlign::Center ? area.center().x() - width / 2
                                                            : area.right() - width;
    painter_.setPen(Qt::black);
    line.draw(&painter_, QPointF(left, area.center().y() - line.height() / 2));
    return true;
  }

  static QTextOption OptionOf(const ReportCell& cell, QTextOption::WrapMode wrap) {
    QTextOption option;
    option.setTextDirection(cell.code ? Qt::LeftToRight : Qt::RightToLeft);
    option.setWrapMode(wrap);
    option.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
    return option;
  }

  void Draw(const ReportCell& cell, const QFont& font, const QRectF& area, const QString& text,
            QTextOption::WrapMode wrap) {
    QTextOption option = OptionOf(cell, wrap);
    option.setAlignment(AlignmentOf(cell.align) | Qt::AlignVCenter);
    painter_.setPen(Qt::black);
    painter_.setFont(font);
    painter_.drawText(area, text, option);
  }

  static Qt::Alignment AlignmentOf(ReportAlign align) {
    switch (align) {
      case ReportAlign::Center:
        return Qt::AlignHCenter;
      case ReportAlign::Left:
        return Qt::AlignLeft | Qt::AlignAbsolute;
      case ReportAlign::Right:
        break;
    }
    return Qt::AlignRight | Qt::AlignAbsolute;
  }

  const QFont& FontOf(const ReportCell& cell, double scale) {
    const ReportTemplate& report = report_.Template();
    const double points = (cell.fontSize > 0 ? cell.fontSize : report.fontSize) * scale;
    const auto [known, isNew] = fonts_.try_emplace({points, cell.bold});
    QFont& font = known->second;
    if (!isNew) return font;
    font = report.fontFamily.empty() ? QApplication::font() : QFont(ToQt(report.fontFamily));
    font.setPixelSize(qRound(points * kMmPerPoint * kUnitsPerMm));
    font.setBold(cell.bold);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
  }

  QPainter& painter_;
  const ReportDocument& report_;
  std::size_t page_;
  std::map<std::pair<double, bool>, QFont> fonts_;  ///< by size in points and weight
};

}  // namespace

void PaintReportPage(QPainter& painter, const ReportDocument& report, std::size_t page, double unitsPerMm) {
  painter.save();
  painter.scale(unitsPerMm / kUnitsPerMm, unitsPerMm / kUnitsPerMm);
  PagePainter(painter, report, page).Paint();
  painter.restore();
}

}  // namespace koru
