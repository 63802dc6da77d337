#include "draft/DraftText.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "platform/text/Errors.h"
#include "platform/text/Fingerprint.h"
#include "platform/text/TabFields.h"

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

}  // namespace

DraftWriter::DraftWriter(std::size_t expectedSize) {
  text_.reserve(expectedSize);
  text_ += kFormat;
}

void DraftWriter::Record(std::string_view name) {
  text_ += '\n';
  text_ += name;
}

void DraftWriter::Field(std::string_view text) { AppendTabField(text_, text); }

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
  auto fields = TabFields(rest_.substr(0, end));
  if (!fields) Fail();
  fields_ = std::move(*fields);
  rest_.remove_prefix(end);
  return true;
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
