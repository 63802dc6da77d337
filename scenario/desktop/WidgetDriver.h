#pragma once

#include <QString>
#include <cstdint>
#include <optional>

#include "platform/text/Date.h"

class QWidget;

namespace koru {

// How a user uses the widgets of a form. Each function returns whether that was possible. Rows are those of
// the form's grid: 0 is the header.

bool TypeInto(QWidget& textBox, const QString& text);
/// Opens the list of a selector and clicks the record of that key; Selector::kNothing empties the selector.
/// Without such a record the list is closed again.
bool PickIn(QWidget& selector, std::int32_t id);
bool EnterDate(QWidget& dateBox, std::optional<Date> date);
bool ChooseIn(QWidget& list, int index);

/// Clicks the cell, types over it and presses Enter; presses Escape when the form refuses the text.
bool TypeIntoCell(QWidget& grid, int row, int col, const QString& text);
bool ClickCell(QWidget& grid, int row, int col);
bool DoubleClickCell(QWidget& grid, int row, int col);
bool ClickColumnHeader(QWidget& grid, int col);
[[nodiscard]] int FirstVisibleColumn(const QWidget& grid);

}  // namespace koru
