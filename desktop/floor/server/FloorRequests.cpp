#include "desktop/floor/server/FloorRequests.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <charconv>
#include <limits>
#include <system_error>
#include <utility>

#include "floor/FloorSession.h"

namespace koru {
namespace {

constexpr std::int64_t kMaxExact = (std::int64_t{1} << 53) - 1;  ///< of the numbers of JSON

std::optional<QJsonObject> ObjectOf(std::string_view json) {
  const QJsonDocument document =
      QJsonDocument::fromJson(QByteArray(json.data(), static_cast<qsizetype>(json.size())));
  if (!document.isObject()) return std::nullopt;
  return document.object();
}

std::optional<std::string> TextOf(const QJsonObject& object, QLatin1String name, std::size_t limit) {
  const QJsonValue value = object.value(name);
  if (!value.isString()) return std::nullopt;
  std::string text = value.toString().toStdString();
  if (text.size() > limit || text.find('\0') != std::string::npos) return std::nullopt;
  return text;
}

std::optional<std::int64_t> NumberOf(const QJsonObject& object, QLatin1String name, std::int64_t least,
                                     std::int64_t most) {
  const QJsonValue value = object.value(name);
  if (!value.isDouble()) return std::nullopt;
  constexpr std::int64_t kNone = -1;
  const std::int64_t number = value.toInteger(kNone);  // kNone for a fraction, too
  if (number < least || number > most) return std::nullopt;
  return number;
}

std::optional<std::string> DeviceOf(const QJsonObject& object) {
  constexpr std::size_t kLimit = 64;
  auto device = TextOf(object, QLatin1String("device"), kLimit);
  if (!device || !FloorSession::IsDeviceID(*device)) return std::nullopt;
  return device;
}

std::optional<std::string> BarcodeOf(const QJsonObject& object) {
  auto barcode = TextOf(object, QLatin1String("barcode"), kMaxBarcodeLength);
  if (!barcode || barcode->empty()) return std::nullopt;
  return barcode;
}

std::optional<FloorFigure> FigureOf(const QJsonObject& item) {
  constexpr std::int64_t kMaxOrdinal = std::numeric_limits<int>::max();
  const auto sequence = NumberOf(item, QLatin1String("seq"), 0, kMaxExact);
  const auto ordinal = NumberOf(item, QLatin1String("ordinal"), 1, kMaxOrdinal);
  auto barcode = BarcodeOf(item);
  auto text = TextOf(item, QLatin1String("text"), kMaxTypedLength);
  const auto operation = item.value(QLatin1String("op")).toString();
  const bool adds = operation == QLatin1String("add");
  if (!sequence || !ordinal || !barcode || !text || (!adds && operation != QLatin1String("set"))) {
    return std::nullopt;
  }
  FloorFigure figure;
  figure.sequence = *sequence;
  figure.line = {std::move(*barcode), static_cast<int>(*ordinal)};
  figure.operation = adds ? FloorFigure::Operation::Add : FloorFigure::Operation::Set;
  figure.text = std::move(*text);
  if (adds) return figure;
  auto base = TextOf(item, QLatin1String("base"), kMaxTypedLength);
  if (!base) return std::nullopt;
  figure.base = std::move(*base);
  return figure;
}

}  // namespace

std::optional<HelloRequest> ReadHello(std::string_view json) {
  const auto object = ObjectOf(json);
  if (!object) return std::nullopt;
  auto device = DeviceOf(*object);
  auto name = TextOf(*object, QLatin1String("name"), kMaxNameBytes);
  if (!device || !name) return std::nullopt;
  return HelloRequest{std::move(*device), std::move(*name)};
}

std::optional<FiguresRequest> ReadFigures(std::string_view json) {
  const auto object = ObjectOf(json);
  if (!object) return std::nullopt;
  auto device = DeviceOf(*object);
  const QJsonValue items = object->value(QLatin1String("items"));
  if (!device || !items.isArray()) return std::nullopt;
  const QJsonArray array = items.toArray();
  if (static_cast<std::size_t>(array.size()) > kMaxItems) return std::nullopt;
  FiguresRequest request{std::move(*device), {}};
  request.figures.reserve(static_cast<std::size_t>(array.size()));
  for (const auto& item : array) {
    auto figure = FigureOf(item.toObject());
    if (!figure) return std::nullopt;
    request.figures.push_back(std::move(*figure));
  }
  return request;
}

std::optional<UnknownRequest> ReadUnknown(std::string_view json) {
  const auto object = ObjectOf(json);
  if (!object) return std::nullopt;
  auto device = DeviceOf(*object);
  auto barcode = BarcodeOf(*object);
  if (!device || !barcode) return std::nullopt;
  return UnknownRequest{std::move(*device), std::move(*barcode)};
}

std::optional<ChangesRequest> ReadChanges(std::optional<std::string_view> since,
                                          std::optional<std::string_view> device) {
  if (!since || !device || !FloorSession::IsDeviceID(*device)) return std::nullopt;
  ChangesRequest request{std::string(*device), 0};
  const auto [end, error] = std::from_chars(since->data(), since->data() + since->size(), request.since);
  if (error != std::errc() || end != since->data() + since->size() || request.since < 0) return std::nullopt;
  return request;
}

}  // namespace koru
