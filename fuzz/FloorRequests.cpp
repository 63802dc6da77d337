// What devices send is read, or refused, within its bounds; and any text becomes a string of JSON that means
// it.

#include "desktop/floor/server/FloorRequests.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>
#include <string>
#include <string_view>

#include "desktop/floor/server/FloorJson.h"
#include "desktop/floor/server/JsonText.h"
#include "floor/FloorSession.h"
#include "fuzz/Require.h"

namespace {

using koru::fuzz::Require;

bool IsText(std::string_view text, std::size_t limit) {
  return text.size() <= limit && text.find('\0') == std::string_view::npos;
}

void CheckFigures(std::string_view text) {
  const auto read = koru::ReadFigures(text);
  if (!read) return;
  Require(koru::FloorSession::IsDeviceID(read->device), "a device has an id");
  Require(read->figures.size() <= koru::kMaxItems, "a request has a bounded number of figures");
  for (const koru::FloorFigure& figure : read->figures) {
    Require(figure.sequence >= 0 && figure.sequence < std::int64_t{1} << 53, "a sequence number is exact");
    Require(figure.line.ordinal >= 1, "a line has an ordinal");
    Require(!figure.line.barcode.empty() && IsText(figure.line.barcode, koru::kMaxBarcodeLength),
            "a barcode");
    Require(IsText(figure.text, koru::kMaxTypedLength) && IsText(figure.base, koru::kMaxTypedLength),
            "texts");
  }
}

void CheckOthers(std::string_view text) {
  if (const auto read = koru::ReadHello(text)) {
    Require(koru::FloorSession::IsDeviceID(read->device) && IsText(read->name, koru::kMaxNameBytes),
            "a name");
  }
  if (const auto read = koru::ReadUnknown(text)) {
    Require(!read->barcode.empty() && IsText(read->barcode, koru::kMaxBarcodeLength), "an unknown barcode");
  }
  const auto bar = std::min(text.find('|'), text.size());
  if (const auto read = koru::ReadChanges(text.substr(0, bar), text.substr(std::min(bar + 1, text.size())))) {
    Require(read->since >= 0 && koru::FloorSession::IsDeviceID(read->device), "a request for changes");
  }
}

/// The text of the only string of an array.
QString TextOf(const std::string& json) {
  const QJsonDocument document = QJsonDocument::fromJson("[" + QByteArray::fromStdString(json) + "]");
  Require(document.isArray() && document.array().size() == 1 && document.array().at(0).isString(), "JSON");
  return document.array().at(0).toString();
}

void CheckWritten(std::string_view text) {
  std::string json;
  koru::AppendJson(json, text);
  const QString meant = TextOf(json);
  const QByteArray bytes(text.data(), static_cast<qsizetype>(text.size()));
  const QString whole = QString::fromUtf8(bytes);
  if (whole.toUtf8() == bytes) Require(meant == whole, "a text arrives as it is");
  const koru::FloorLine line{{std::string(text), 1}, std::string(text), std::string(text), {}, {}};
  std::string lines = koru::LinesJson(1, 1, true);
  koru::AppendLines(lines, {&line, 1}, true);
  lines += koru::kLinesEnd;
  Require(QJsonDocument::fromJson(QByteArray::fromStdString(lines)).isObject(), "lines of any text are JSON");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = koru::fuzz::TextOf(data, size);
  CheckFigures(text);
  CheckOthers(text);
  CheckWritten(text);
  return 0;
}
