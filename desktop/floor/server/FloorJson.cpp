#include "desktop/floor/server/FloorJson.h"

#include <utility>

#include "desktop/floor/server/JsonText.h"

namespace koru {
namespace {

constexpr std::string_view NameOf(FigureState state) {
  switch (state) {
    case FigureState::Stored:
      return "stored";
    case FigureState::Warned:
      return "warned";
    case FigureState::Refused:
      return "refused";
    case FigureState::Conflict:
      return "conflict";
    case FigureState::Gone:
      return "gone";
    case FigureState::Paused:
      return "paused";
  }
  return "refused";
}

void AppendOpen(std::string& json, bool open) { json += open ? R"(,"open":true)" : R"(,"open":false)"; }

/// The beginning of an array's element for a line: `["barcode",1`.
void AppendKey(std::string& json, const LineKey& key) {
  json += '[';
  AppendJson(json, key.barcode);
  json += ',';
  json += std::to_string(key.ordinal);
}

void AppendElement(std::string& json, std::string_view text) {
  json += ',';
  AppendJson(json, text);
}

void AppendField(std::string& json, std::string_view name, std::string_view text) {
  json += name;
  AppendJson(json, text);
}

}  // namespace

std::string HelloJson(int count, std::string_view store, std::string_view counting, bool open) {
  std::string json = R"({"count":)" + std::to_string(count);
  AppendField(json, R"(,"store":)", store);
  AppendField(json, R"(,"counting":)", counting);
  AppendOpen(json, open);
  return json + '}';
}

std::string LinesJson(std::int64_t revision, int count, bool open) {
  std::string json = R"({"rev":)" + std::to_string(revision) + R"(,"count":)" + std::to_string(count);
  AppendOpen(json, open);
  return json + R"(,"lines":[)";
}

void AppendLines(std::string& json, std::span<const FloorLine> lines, bool isFirst) {
  for (const FloorLine& line : lines) {
    if (!std::exchange(isFirst, false)) json += ',';
    AppendKey(json, line.key);
    AppendElement(json, line.code);
    AppendElement(json, line.name);
    AppendElement(json, line.unit);
    AppendElement(json, line.figure);
    json += ']';
  }
}

std::string FiguresJson(std::int64_t revision, bool open, std::span<const FloorAnswer> answers) {
  std::string json = R"({"rev":)" + std::to_string(revision);
  AppendOpen(json, open);
  json += R"(,"items":[)";
  for (const FloorAnswer& answer : answers) {
    if (&answer != answers.data()) json += ',';
    json += R"({"seq":)" + std::to_string(answer.sequence);
    AppendField(json, R"(,"state":)", NameOf(answer.state));
    AppendField(json, R"(,"text":)", answer.text);
    AppendField(json, R"(,"message":)", answer.message);
    AppendField(json, R"(,"by":)", answer.by);
    json += '}';
  }
  json += "]}";
  return json;
}

std::string ChangesJson(const FloorChanges& changes) {
  std::string json = R"({"rev":)" + std::to_string(changes.revision);
  AppendOpen(json, changes.open);
  json += changes.linesChanged ? R"(,"lines":true,"cells":[)" : R"(,"lines":false,"cells":[)";
  for (const FloorChanges::Cell& cell : changes.cells) {
    if (&cell != changes.cells.data()) json += ',';
    AppendKey(json, cell.line);
    AppendElement(json, cell.figure);
    json += ']';
  }
  json += "]}";
  return json;
}

}  // namespace koru
