#include "floor/JournalText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <set>
#include <utility>

#include "platform/text/Errors.h"
#include "platform/text/Fingerprint.h"
#include "platform/text/TabFields.h"

namespace koru {
namespace {

constexpr std::string_view kJournal = "floor1";  ///< the first record; the digit is the version of the format
constexpr std::string_view kCode = "code";
constexpr std::string_view kDevice = "device";
constexpr std::string_view kEntered = "entered";
constexpr std::string_view kUnknown = "unknown";
constexpr std::string_view kOrdinals = "ordinals";
constexpr std::string_view kFigure = "figure";

constexpr std::array<std::string_view, 5> kStates = {"stored", "warned", "refused", "conflict", "gone"};
constexpr std::array<std::string_view, 2> kOperations = {"set", "add"};

/// A record on its way to a line of the journal.
class Record {
 public:
  explicit Record(std::string_view name) : text_(name) {}

  Record& Add(std::string_view field) {
    AppendTabField(text_, field);
    return *this;
  }
  Record& Add(std::int64_t number) {
    std::array<char, 20> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    text_.append(1, '\t').append(digits.data(), end.ptr);
    return *this;
  }

  [[nodiscard]] std::string Line() const {
    std::string line = std::to_string(Fingerprint(text_));
    line.append(1, '\t').append(text_).append(1, '\n');
    return line;
  }

 private:
  std::string text_;
};

template <class Number>
std::optional<Number> NumberIn(std::string_view text) {
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return {};
  return number;
}

std::optional<int> CountIn(std::string_view text) {
  const auto count = NumberIn<int>(text);
  return count && *count >= 1 && *count <= kFloorCounts ? count : std::nullopt;
}

template <std::size_t Size>
std::optional<std::size_t> PlaceOf(std::string_view name, const std::array<std::string_view, Size>& names) {
  const auto found = std::find(names.begin(), names.end(), name);
  if (found == names.end()) return {};
  return static_cast<std::size_t>(found - names.begin());
}

/// The fields of a line, the record's name first; nothing when the line is damaged.
std::optional<std::vector<std::string>> FieldsOf(std::string_view line) {
  const std::size_t tab = line.find('\t');
  if (tab == std::string_view::npos) return {};
  const auto fingerprint = NumberIn<std::uint64_t>(line.substr(0, tab));
  const std::string_view record = line.substr(tab + 1);
  if (!fingerprint || *fingerprint != Fingerprint(record)) return {};
  return TabFields(record);
}

JournalStart::Device& DeviceIn(JournalStart& start, int count, const std::string& id) {
  const auto found = std::find_if(
      start.devices.begin(), start.devices.end(),
      [&](const JournalStart::Device& device) { return device.count == count && device.id == id; });
  if (found != start.devices.end()) return *found;
  return start.devices.emplace_back(JournalStart::Device{count, id, {}, {}});
}

// Each takes the fields of a record, its name first, and answers whether they are in order.
using Fields = std::vector<std::string>;

bool TakeCode(const Fields& fields, JournalContents& contents) {
  if (fields.size() != 3) return false;
  const auto count = CountIn(fields[1]);
  if (!count || !IsAccessCode(fields[2])) return false;
  contents.start.codes.at(static_cast<std::size_t>(*count - 1)) = fields[2];
  return true;
}

bool TakeDevice(const Fields& fields, JournalContents& contents) {
  if (fields.size() != 4) return false;
  const auto count = CountIn(fields[1]);
  if (!count) return false;
  DeviceIn(contents.start, *count, fields[2]).name = fields[3];
  return true;
}

bool TakeEntered(const Fields& fields, JournalContents& contents) {
  if (fields.size() != 5) return false;
  const auto count = CountIn(fields[1]);
  const auto first = NumberIn<std::int64_t>(fields[3]);
  const auto last = NumberIn<std::int64_t>(fields[4]);
  if (!count || !first || !last || *first > *last) return false;
  DeviceIn(contents.start, *count, fields[2]).entered.Add(*first, *last);
  return true;
}

bool TakeUnknown(const Fields& fields, JournalContents& contents) {
  if (fields.size() != 4) return false;
  const auto count = CountIn(fields[1]);
  if (!count) return false;
  auto& unknown = contents.start.unknown;
  const UnknownBarcode barcode{fields[3], *count, fields[2]};  // once more after a failed write
  if (std::find(unknown.begin(), unknown.end(), barcode) == unknown.end()) unknown.push_back(barcode);
  return true;
}

bool TakeOrdinals(const Fields& fields, JournalContents& contents) {
  if (fields.size() < 2) return false;
  std::vector<int> ordinals;
  for (std::size_t field = 2; field < fields.size(); ++field) {
    const auto ordinal = NumberIn<int>(fields[field]);
    if (!ordinal || *ordinal < 1) return false;
    ordinals.push_back(*ordinal);
  }
  if (std::set(ordinals.begin(), ordinals.end()).size() < ordinals.size()) return false;
  contents.start.ordinals.insert_or_assign(fields[1], std::move(ordinals));
  return true;
}

bool TakeFigure(const Fields& fields, JournalContents& contents) {
  if (fields.size() != 14) return false;
  const auto count = CountIn(fields[1]);
  const auto sequence = NumberIn<std::int64_t>(fields[3]);
  const auto operation = PlaceOf(fields[4], kOperations);
  const auto ordinal = NumberIn<int>(fields[6]);
  const auto state = PlaceOf(fields[10], kStates);
  const auto time = NumberIn<std::int64_t>(fields[13]);
  if (!count || !sequence || !operation || !ordinal || *ordinal < 1 || !state || !time) return false;
  JournalFigure taken;
  taken.count = *count;
  taken.device = fields[2];
  taken.figure = {
      *sequence, {fields[5], *ordinal}, static_cast<FloorFigure::Operation>(*operation), fields[7], {}};
  taken.before = fields[8];
  taken.answer = {*sequence, static_cast<FigureState>(*state), fields[9], fields[11], fields[12]};
  taken.time = std::chrono::sys_seconds(std::chrono::seconds(*time));
  contents.figures.push_back(std::move(taken));
  return true;
}

bool Take(const Fields& fields, JournalContents& contents) {
  if (fields.front() == kFigure) return TakeFigure(fields, contents);
  if (fields.front() == kDevice) return TakeDevice(fields, contents);
  if (fields.front() == kEntered) return TakeEntered(fields, contents);
  if (fields.front() == kUnknown) return TakeUnknown(fields, contents);
  if (fields.front() == kOrdinals) return TakeOrdinals(fields, contents);
  return fields.front() == kCode && TakeCode(fields, contents);
}

bool TakeFirst(const std::optional<Fields>& fields, JournalStart& start) {
  if (!fields || fields->size() != 2 + start.codes.size() || fields->front() != kJournal) return false;
  const auto counting = NumberIn<std::int32_t>((*fields)[1]);
  if (!counting || *counting <= 0) return false;
  start.countingID = *counting;
  std::copy(fields->begin() + 2, fields->end(), start.codes.begin());
  return std::all_of(start.codes.begin(), start.codes.end(), IsAccessCode);
}

}  // namespace

std::string JournalText(const JournalStart& start) {
  Record first(kJournal);
  first.Add(start.countingID);
  for (const std::string& code : start.codes) first.Add(code);
  std::string text = first.Line();
  for (const JournalStart::Device& device : start.devices) {
    text += JournalLine(device);
    for (const auto& [from, to] : device.entered.All()) {
      text += Record(kEntered).Add(device.count).Add(device.id).Add(from).Add(to).Line();
    }
  }
  for (const UnknownBarcode& barcode : start.unknown) text += JournalLine(barcode);
  for (const auto& [barcode, ordinals] : start.ordinals) text += JournalLine(barcode, ordinals);
  return text;
}

std::string JournalText(const JournalContents& contents) {
  std::string text = JournalText(contents.start);
  for (const JournalFigure& figure : contents.figures) text += JournalLine(figure);
  return text;
}

std::string JournalLine(const JournalFigure& figure) {
  const FloorFigure& entry = figure.figure;
  const FloorAnswer& answer = figure.answer;
  Record record(kFigure);
  record.Add(figure.count).Add(figure.device).Add(entry.sequence);
  record.Add(kOperations.at(static_cast<std::size_t>(entry.operation)));
  record.Add(entry.line.barcode).Add(entry.line.ordinal).Add(entry.text).Add(figure.before).Add(answer.text);
  record.Add(kStates.at(static_cast<std::size_t>(answer.state))).Add(answer.message).Add(answer.by);
  return record.Add(figure.time.time_since_epoch().count()).Line();
}

std::string JournalLine(const UnknownBarcode& barcode) {
  return Record(kUnknown).Add(barcode.count).Add(barcode.device).Add(barcode.barcode).Line();
}

std::string JournalLine(const std::string& barcode, const std::vector<int>& ordinals) {
  Record several(kOrdinals);
  several.Add(barcode);
  for (const int ordinal : ordinals) several.Add(ordinal);
  return several.Line();
}

std::string JournalLine(const JournalStart::Device& device) {
  return Record(kDevice).Add(device.count).Add(device.id).Add(device.name).Line();
}

std::string JournalLine(int count, std::string_view code) {
  return Record(kCode).Add(count).Add(code).Line();
}

JournalContents ReadJournal(std::string_view text) {
  JournalContents contents;
  const std::size_t last = text.rfind('\n');
  contents.whole = last == std::string_view::npos ? 0 : last + 1;
  text = text.substr(0, contents.whole);
  for (bool isFirst = true; isFirst || !text.empty(); isFirst = false) {
    const std::size_t end = text.find('\n');
    const auto fields = FieldsOf(text.substr(0, end));
    if (isFirst && !TakeFirst(fields, contents.start)) {
      throw InputError("دفتر ارقام گوشي\u200cها ناقص يا آسيب\u200cديده است.");
    }
    if (!isFirst && (!fields || !Take(*fields, contents))) ++contents.damaged;
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return contents;
}

}  // namespace koru
