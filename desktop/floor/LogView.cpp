#include "desktop/floor/LogView.h"

#include <QHeaderView>

#include "desktop/floor/FloorLog.h"
#include "desktop/toolkit/WholeTextTip.h"

namespace koru {

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
  setColumnWidth(FloorLog::State, 2 * columnWidth(FloorLog::Time));
}

}  // namespace koru
