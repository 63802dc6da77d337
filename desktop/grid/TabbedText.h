#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace koru {

/// The cells of a text as spreadsheets copy them: a line for each row, tabs between cells. A cell that begins
/// with a quote ends with the next single one, may contain tabs and line breaks, and has its quotes doubled;
/// a quote that nothing closes is a character. An empty text has no rows.
[[nodiscard]] std::vector<QStringList> CellsOf(const QString& tabbed);

/// The text that CellsOf reads back.
[[nodiscard]] QString TabbedText(const std::vector<QStringList>& rows);

}  // namespace koru
