#include "desktop/grid/KeptColumns.h"

#include "desktop/grid/GridView.h"
#include "platform/ports/PropertyBag.h"
#include "platform/text/Errors.h"

namespace koru {

void KeepColumns(GridView& view, PropertyBag* preferences, const std::string& key) {
  if (preferences == nullptr) return;
  try {
    view.Arrange(ArrangementOf(std::get<std::string>(preferences->Read(key, std::string()))));
  } catch (const InputError&) {  // widths that cannot be read keep nobody from counting
  }
  QObject::connect(&view, &GridView::columnsArranged, &view, [&view, preferences, key] {
    try {
      preferences->Write(key, ToText(view.Fitting().Arranged()), std::string());
    } catch (const InputError&) {  // no message in the midst of a drag
    }
  });
}

}  // namespace koru
