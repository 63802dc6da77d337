#include "desktop/search/GoodsPickerDialog.h"

#include <QApplication>
#include <utility>

#include "desktop/search/GoodsPickerWindow.h"

namespace koru {

std::optional<std::vector<PickedGood>> PickInDialog(GoodsFinder& finder, PickRequest request) {
  GoodsPickerWindow window(finder, {request.store, finder.StoreName(request.store)},
                           std::move(request.basket), QApplication::activeWindow());
  if (window.exec() != QDialog::Accepted) return std::nullopt;
  return window.Picked();
}

}  // namespace koru
