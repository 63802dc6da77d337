#include "draft/DraftText.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "platform/text/Errors.h"
#include "platform/text/Fingerprint.h"

namespace koru {
namespace {

constexpr std::string_view kFormat = "koru-counting draft 1";
constexpr std::string_view kEnd = "\nend\t";

template <class Number>
Number NumberIn(std::string_view text) {
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) DraftReader::Fail();
  return number;
}

/// What is between the first line and the last one.
std::string_view Contents(std::string_view text) {
  const std::size_t end = text.rfind(kEnd);
  if (!text.starts_with(kFormat) || end == std::string_view::npos || !text.ends_with('\n')) {
    DraftReader::Fail();
  }
  const std::string_view written = text.substr(end + kEnd.size());
  const auto fingerprint = NumberIn<std::uint64_t>(written.substr(0, written.size() - 1));
  if (Fingerprint(text.substr(0, end)) != fingerprint) DraftReader::Fail();
  return text.substr(kFormat.size(), end - kFormat.size());
}

std::string Unescaped(std::string_view written) {
  std::string text;
  text.reserve(written.size());
  for (std::size_t at = 0; at < written.size(); ++at) {
    if (written[at] != '\\') {
      text += written[at];
      continue;
    }
    if (++at == written.size()) DraftReader::Fail();
    text += written[at] == 't' ? '\t' : written[at] == 'n' ? '\n' : written[at];
  }
  return text;
}

}  // namespace

DraftWriter::DraftWriter(std::size_t expectedSize) {
  text_.reserve(expectedSize);
  text_ += kFormat;
}

void DraftWriter::Record(std::string_view name) {
  text_ += '\n';
  text_ += name;
}

void DraftWriter::Field(std::string_view text) {
  text_ += '\t';
  if (text.find_first_of("\\\t\n") == std::string_view::npos) {
    text_ += text;
    return;
  }
  for (const char c : text) {
    if (c == '\\' || c == '\t' || c == '\n') text_ += '\\';
    text_ += c == '\t' ? 't' : c == '\n' ? 'n' : c;
  }
}

std::string DraftWriter::Finish() {
  const std::uint64_t fingerprint = Fingerprint(text_);
  text_ += kEnd;
  text_ += std::to_string(fingerprint);
  text_ += '\n';
  return std::exchange(text_, {});
}

DraftReader::DraftReader(std::string_view text) : rest_(Contents(text)) {}

bool DraftReader::Next() {
  if (rest_.empty()) return false;
  rest_.remove_prefix(1);  // the line feed before the record
  const std::size_t end = std::min(rest_.find('\n'), rest_.size());
  std::string_view record = rest_.substr(0, end);
  rest_.remove_prefix(end);
  fields_.clear();
  for (;;) {
    const std::size_t tab = record.find('\t');
    fields_.push_back(Unescaped(record.substr(0, tab)));
    if (tab == std::string_view::npos) return true;
    record.remove_prefix(tab + 1);
  }
}

const std::string& DraftReader::Text(std::size_t field) const {
  if (field >= Count()) Fail();
  return fields_[field + 1];
}

std::int32_t DraftReader::Number(std::size_t field) const { return NumberIn<std::int32_t>(Text(field)); }

std::uint64_t DraftReader::LongNumber(std::size_t field) const {
  return NumberIn<std::uint64_t>(Text(field));
}

void DraftReader::Fail() { throw InputError("پيش\u200cنويس شمارش ناقص يا آسيب\u200cديده است."); }

}  // namespace koru
