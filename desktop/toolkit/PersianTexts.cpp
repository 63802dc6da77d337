#include "desktop/toolkit/PersianTexts.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace koru {
namespace {

constexpr std::array<std::string_view, 3> kContexts{"QLineEdit", "QWidgetTextControl", "QAbstractSpinBox"};

constexpr std::array<std::pair<std::string_view, const char*>, 8> kTexts{{{"&Undo", "برگرداندن"},
                                                                          {"&Redo", "انجام دوباره"},
                                                                          {"Cu&t", "برش"},
                                                                          {"&Copy", "رونوشت"},
                                                                          {"&Paste", "چسباندن"},
                                                                          {"Delete", "حذف"},
                                                                          {"Select All", "انتخاب همه"},
                                                                          {"&Select All", "انتخاب همه"}}};

}  // namespace

QString PersianTexts::translate(const char* context, const char* text, const char* /*comment*/,
                                int /*number*/) const {
  if (std::find(kContexts.begin(), kContexts.end(), context) == kContexts.end()) return {};
  const auto* const found =
      std::find_if(kTexts.begin(), kTexts.end(), [text](const auto& pair) { return pair.first == text; });
  return found == kTexts.end() ? QString() : QString::fromUtf8(found->second);
}

}  // namespace koru
