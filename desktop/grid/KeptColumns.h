#pragma once

#include <string>

namespace koru {

class GridView;
class PropertyBag;

/// Gives the columns of `view` the widths and the order that the user gave them last, which `preferences` has
/// under `key`, and keeps each change that the user makes there. Without preferences (nullptr), or where they
/// cannot be read or written, an arrangement lasts as long as the view. `preferences` must outlive the view.
void KeepColumns(GridView& view, PropertyBag* preferences, const std::string& key);

}  // namespace koru
