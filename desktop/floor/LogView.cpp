#include "desktop/floor/LogView.h"

#include <QHeaderView>

#include "desktop/floor/FloorLog.h"
#include "desktop/floor/FloorTexts.h"
#include "desktop/toolkit/WholeTextTip.h"

namespace koru {
namespace {

constexpr int kMargins = 12;

}  // namespace

LogView::LogView(FloorLog& log, QWidget* parent) : QTableView(parent) {
  setModel(&log);
  setItemDelegate(new WholeTextTip(this));  // NOLINT(cppcoreguidelines-owning-memory): of the view
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setTabKeyNavigation(false);
  setWordWrap(false);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
  horizontalHeader()->setSectionResizeMode(FloorLog::Good, QHeaderView::Stretch);
  const auto fit = [this](int column, const QString& text) {
    setColumnWidth(column, fontMetrics().horizontalAdvance(text) + kMargins);
  };
  fit(FloorLog::Time, QStringLiteral("00:00:00"));
  fit(FloorLog::Count, TitleOfCount(kFloorCounts));
  fit(FloorLog::Barcode, QString(13, u'0'));  // EAN-13
  fit(FloorLog::Figure, QString(10, u'0'));
  fit(FloorLog::State, TitleOfState(FigureState::Conflict) + QString(10, u'0'));  // and what the cell has
}

}  // namespace koru
