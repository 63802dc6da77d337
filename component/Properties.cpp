#include <limits>
#include <string_view>
#include <utility>

#include "component/comInvCounting.h"
#include "platform/text/Errors.h"

namespace koru {
namespace {

namespace key {
constexpr std::string_view kBackColor = "BackColor";
constexpr std::string_view kForeColor = "ForeColor";
constexpr std::string_view kEnabled = "Enabled";
constexpr std::string_view kBackStyle = "BackStyle";
constexpr std::string_view kBorderStyle = "BorderStyle";
constexpr std::string_view kConnection = "OleConnectionString";
constexpr std::string_view kUserID = "UserID";
constexpr std::string_view kEmployeeID = "EmployeeID";
constexpr std::string_view kPositionID = "PositionID";
constexpr std::string_view kAccPeriodSpecID = "AccPeriodSpecID";
constexpr std::string_view kFont = "Font";
constexpr std::string_view kForcedReceiptID = "ForcedReceiptID";
}  // namespace key

constexpr std::int32_t kNoReceipt = -1;
constexpr const char* kNoConnection = "0";

template <class T>
T Read(const PropertyBag& store, std::string_view key, const PropertyValue& defaultValue) {
  return std::get<T>(store.Read(key, defaultValue));
}

std::int16_t ReadShort(const PropertyBag& store, std::string_view key, std::int32_t defaultValue) {
  const auto number = Read<std::int32_t>(store, key, defaultValue);
  if (number < std::numeric_limits<std::int16_t>::min() ||
      number > std::numeric_limits<std::int16_t>::max()) {
    throw InputError("مقدار ويژگي " + std::string(key) +
                     " بيرون از بازة -32768 تا 32767 است: " + std::to_string(number));
  }
  return static_cast<std::int16_t>(number);
}

}  // namespace

void comInvCounting::InitProperties() {
  backColor_ = 0;
  foreColor_ = 0;
  enabled_ = false;
  backStyle_ = 0;
  borderStyle_ = 0;
  oleConnectionString_ = kNoConnection;
  user_ = SignedInUser{};
  font_ = host_.AmbientFont();
}

void comInvCounting::ReadProperties(const PropertyBag& store) {
  const auto backColor = Read<std::int32_t>(store, key::kBackColor, 0);
  const auto foreColor = Read<std::int32_t>(store, key::kForeColor, 0);
  const bool enabled = Read<bool>(store, key::kEnabled, false);
  const std::int16_t backStyle = ReadShort(store, key::kBackStyle, 0);
  const std::int16_t borderStyle = ReadShort(store, key::kBorderStyle, 0);
  auto connection = Read<std::string>(store, key::kConnection, std::string(kNoConnection));
  SignedInUser user;
  user.userID = Read<std::int32_t>(store, key::kUserID, 0);
  user.employeeID = ReadShort(store, key::kEmployeeID, 0);
  user.positionID = ReadShort(store, key::kPositionID, 0);
  user.accPeriodSpecID = Read<std::int32_t>(store, key::kAccPeriodSpecID, 0);
  auto font = Read<koru::Font>(store, key::kFont, host_.AmbientFont());
  user.forcedReceiptID = ReadShort(store, key::kForcedReceiptID, kNoReceipt);

  // All keys were readable: only now does the control change.
  backColor_ = backColor;
  foreColor_ = foreColor;
  enabled_ = enabled;
  backStyle_ = backStyle;
  borderStyle_ = borderStyle;
  oleConnectionString_ = std::move(connection);
  user_ = user;
  font_ = std::move(font);
}

void comInvCounting::WriteProperties(PropertyBag& store) const {
  const auto writeInteger = [&](std::string_view name, std::int32_t value, std::int32_t defaultValue = 0) {
    store.Write(name, value, defaultValue);
  };
  writeInteger(key::kBackColor, backColor_);
  writeInteger(key::kForeColor, foreColor_);
  store.Write(key::kEnabled, enabled_, false);
  writeInteger(key::kBackStyle, backStyle_);
  writeInteger(key::kBorderStyle, borderStyle_);
  store.Write(key::kConnection, oleConnectionString_, std::string(kNoConnection));
  writeInteger(key::kUserID, user_.userID);
  writeInteger(key::kEmployeeID, user_.employeeID);
  writeInteger(key::kPositionID, user_.positionID);
  writeInteger(key::kAccPeriodSpecID, user_.accPeriodSpecID);
  store.Write(key::kFont, font_, host_.AmbientFont());
  writeInteger(key::kForcedReceiptID, user_.forcedReceiptID, kNoReceipt);
}

void comInvCounting::SetBackColor(std::int32_t color) {
  backColor_ = color;
  host_.PropertyChanged(key::kBackColor);
}

void comInvCounting::SetForeColor(std::int32_t color) {
  foreColor_ = color;
  host_.PropertyChanged(key::kForeColor);
}

void comInvCounting::SetEnabled(bool enabled) {
  enabled_ = enabled;
  host_.PropertyChanged(key::kEnabled);
}

void comInvCounting::SetBackStyle(std::int16_t style) {
  backStyle_ = style;
  host_.PropertyChanged(key::kBackStyle);
}

void comInvCounting::SetBorderStyle(std::int16_t style) {
  borderStyle_ = style;
  host_.PropertyChanged(key::kBorderStyle);
}

void comInvCounting::SetOLEConnectionString(std::string connectionString) {
  oleConnectionString_ = std::move(connectionString);
  host_.PropertyChanged(key::kConnection);
}

void comInvCounting::SetUserID(std::int32_t id) {
  user_.userID = id;
  host_.PropertyChanged(key::kUserID);
}

void comInvCounting::SetAccPeriodSpecID(std::int32_t id) {
  user_.accPeriodSpecID = id;
  host_.PropertyChanged(key::kAccPeriodSpecID);
}

void comInvCounting::StoreEmployeeID(std::int16_t id) {
  user_.employeeID = id;
  host_.PropertyChanged(key::kEmployeeID);
}

void comInvCounting::StorePositionID(std::int16_t id) {
  user_.positionID = id;
  host_.PropertyChanged(key::kPositionID);
}

void comInvCounting::StoreForcedReceiptID(std::int16_t id) {
  user_.forcedReceiptID = id;
  host_.PropertyChanged(key::kForcedReceiptID);
}

void comInvCounting::SetFont(koru::Font font) {
  font_ = std::move(font);
  host_.PropertyChanged(key::kFont);
}

}  // namespace koru
