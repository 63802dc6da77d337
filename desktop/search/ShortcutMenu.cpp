#include "desktop/search/ShortcutMenu.h"

#include <QStyleOptionMenuItem>
#include <algorithm>

namespace koru {
namespace {

const QString kGap = QStringLiteral("  ");

}  // namespace

void ShortcutMenu::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const {
  QMenu::initStyleOption(option, action);
  int widest = 0;
  for (const QAction* const entry : actions()) {
    widest = std::max(widest, option->fontMetrics.horizontalAdvance(entry->text().section(kGap, 0, 0)));
  }
  option->reservedShortcutWidth = widest;
  const QString caption = action->text();
  option->text = caption.section(kGap, -1).trimmed() + QLatin1Char('\t') + caption.section(kGap, 0, 0);
}

}  // namespace koru
