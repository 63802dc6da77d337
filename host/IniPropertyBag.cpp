#include "host/IniPropertyBag.h"

#include <charconv>
#include <optional>

#include "platform/text/Errors.h"
#include "platform/text/Numbers.h"

namespace koru {
namespace {

template <class Number>
std::optional<Number> NumberIn(std::string_view text) {
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool whole = error == std::errc() && end == text.data() + text.size();
  return whole ? std::optional(number) : std::nullopt;
}

std::optional<Font> FontIn(std::string_view text) {
  Font font;
  const auto takeLast = [&] {
    const std::size_t at = text.rfind(';');
    const std::string_view last = at == std::string_view::npos ? std::string_view() : text.substr(at + 1);
    text = text.substr(0, at == std::string_view::npos ? 0 : at);
    return last;
  };
  const auto italic = NumberIn<int>(takeLast());
  const auto bold = NumberIn<int>(takeLast());
  const auto size = NumberIn<double>(takeLast());
  if (!italic || !bold || !size || text.empty() || *size <= 0) return std::nullopt;
  return Font{std::string(text), *size, *bold != 0, *italic != 0};
}

/// `text` as a value of the kind of `kind`.
std::optional<PropertyValue> ValueIn(const std::string& text, const PropertyValue& kind) {
  if (std::holds_alternative<std::string>(kind)) return text;
  if (std::holds_alternative<Font>(kind)) {
    const auto font = FontIn(text);
    return font ? std::optional<PropertyValue>(*font) : std::nullopt;
  }
  const auto number = NumberIn<std::int32_t>(text);
  if (!number) return std::nullopt;
  return std::holds_alternative<bool>(kind) ? PropertyValue(*number != 0) : PropertyValue(*number);
}

std::string TextOf(const PropertyValue& value) {
  if (const auto* flag = std::get_if<bool>(&value)) return *flag ? "-1" : "0";
  if (const auto* number = std::get_if<std::int32_t>(&value)) return std::to_string(*number);
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  const Font& font = std::get<Font>(value);
  return font.name + ";" + NumberText(font.size) + ";" + (font.bold ? "-1" : "0") + ";" +
         (font.italic ? "-1" : "0");
}

}  // namespace

PropertyValue IniPropertyBag::Read(std::string_view key, const PropertyValue& defaultValue) const {
  const auto stored = file_.Get(section_, key);
  if (!stored) return defaultValue;
  if (auto value = ValueIn(*stored, defaultValue)) return *value;
  throw InputError("مقدار " + std::string(key) +
                   " در پروندة تنظيمات خوانا نيست: " + file_.PlaceOf(section_, key));
}

void IniPropertyBag::Write(std::string_view key, const PropertyValue& value,
                           const PropertyValue& defaultValue) {
  if (value == defaultValue) {
    file_.Remove(section_, key);
  } else {
    file_.Set(section_, key, TextOf(value));
  }
}

}  // namespace koru
