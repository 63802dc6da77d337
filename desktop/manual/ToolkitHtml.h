#pragma once

#include <QString>

namespace koru {

/// A page of the manual as the toolkit shows it well. The cells of each table row are in the opposite order,
/// since tables begin at the left also on a page from right to left. Direction marks surround keys and code,
/// which the toolkit does not isolate from the text ("--size"). A heading with an anchor begins with a mark,
/// since the letter that has the anchor is not joined to the next one.
[[nodiscard]] QString ToolkitHtml(QString html);

}  // namespace koru
