#include "host/IniFile.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <system_error>

#include "adapters/system/ErrorText.h"
#include "adapters/system/SetAside.h"
#include "adapters/system/WriteWhole.h"
#include "platform/text/Errors.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

std::string_view Stripped(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r";
  const std::size_t begin = std::min(text.size(), text.find_first_not_of(kBlanks));
  return text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

/// The value of `written`; nothing when its quotes or escapes are not in order.
std::optional<std::string> ValueOf(std::string_view written) {
  if (!written.starts_with('"')) return std::string(written);
  std::string value;
  for (std::size_t at = 1; at < written.size(); ++at) {
    if (written[at] == '"') return at + 1 == written.size() ? std::optional(value) : std::nullopt;
    if (written[at] == '\\') {
      ++at;
      if (at == written.size() || std::string_view("\"\\n").find(written[at]) == std::string_view::npos)
        break;
      value += written[at] == 'n' ? '\n' : written[at];
    } else {
      value += written[at];
    }
  }
  return std::nullopt;
}

std::string WrittenValue(const std::string& value) {
  const bool plain = Stripped(value).size() == value.size() && !value.starts_with('"') &&
                     value.find('\n') == std::string::npos;
  if (plain) return value;
  std::string written = "\"";
  for (const char c : value) {
    if (c == '"' || c == '\\') written += '\\';
    written += c == '\n' ? std::string("\\n") : std::string(1, c);
  }
  return written + '"';
}

}  // namespace

IniFile IniFile::Read(const std::filesystem::path& file) {
  IniFile ini(file);
  std::error_code error;
  if (!std::filesystem::exists(file, error) && !error) return ini;
  std::ifstream stream(file, std::ios::binary);
  if (error || !stream || std::filesystem::is_directory(file)) {
    throw InputError("پروندة تنظيمات خوانده نشد: " + LeftToRight(file.string()));
  }
  std::string section;
  for (std::string line; std::getline(stream, line);) ini.ReadLine(line, section);
  return ini;
}

std::filesystem::path IniFile::SetAside(const std::filesystem::path& file) {
  std::error_code error;
  std::filesystem::path kept = koru::SetAside(file, error);
  if (error) {
    throw InputError("پروندة تنظيمات كنار گذاشته نشد: " + LeftToRight(file.string()) + " (" +
                     error.message() + ")");
  }
  return kept;
}

void IniFile::ReadLine(std::string_view text, std::string& section) {
  const std::string_view line = Stripped(text);
  const auto fail = [&](const std::string& why) {
    throw InputError("پروندة تنظيمات " + LeftToRight(file_.string()) + "، سطر " +
                     std::to_string(lines_.size() + 1) + ": " + why);
  };
  if (line.empty() || line.starts_with(';')) {
    lines_.push_back({section, {}, std::string(line)});
  } else if (line.starts_with('[')) {
    if (!line.ends_with(']')) fail("نام بخش با ] بسته نشده است.");
    section = Stripped(line.substr(1, line.size() - 2));
    lines_.push_back({section, {}, std::string(line)});
  } else {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos || equals == 0) fail("اين سطر به شكل «نام=مقدار» نيست.");
    const auto value = ValueOf(Stripped(line.substr(equals + 1)));
    if (!value) fail("گيومه يا نشانة \\ مقدار درست نيست.");
    lines_.push_back({section, std::string(Stripped(line.substr(0, equals))), *value});
  }
}

std::vector<IniFile::Line>::const_iterator IniFile::Find(std::string_view section,
                                                         std::string_view key) const {
  return std::find_if(lines_.begin(), lines_.end(),
                      [&](const Line& line) { return line.section == section && line.key == key; });
}

std::optional<std::string> IniFile::Get(std::string_view section, std::string_view key) const {
  const auto found = Find(section, key);
  return found == lines_.end() ? std::nullopt : std::optional(found->text);
}

void IniFile::Set(std::string_view section, std::string_view key, std::string value) {
  const auto found = Find(section, key);
  if (found != lines_.end()) {
    lines_[static_cast<std::size_t>(found - lines_.begin())].text = std::move(value);
    return;
  }
  const auto last = std::find_if(lines_.rbegin(), lines_.rend(), [&](const Line& line) {
    return line.section == section && !line.text.empty();
  });
  if (last == lines_.rend()) {
    lines_.push_back({std::string(section), {}, "[" + std::string(section) + "]"});
    lines_.push_back({std::string(section), std::string(key), std::move(value)});
  } else {
    lines_.insert(last.base(), {std::string(section), std::string(key), std::move(value)});
  }
}

void IniFile::Remove(std::string_view section, std::string_view key) {
  std::erase_if(lines_, [&](const Line& line) { return line.section == section && line.key == key; });
}

std::string IniFile::PlaceOf(std::string_view section, std::string_view key) const {
  const auto found = Find(section, key);
  return LeftToRight(file_.string()) + "، سطر " + std::to_string(found - lines_.begin() + 1);
}

void IniFile::Write() const {
  std::string text;
  for (const Line& line : lines_)
    text += (line.key.empty() ? line.text : line.key + "=" + WrittenValue(line.text)) + '\n';
  std::error_code ignored;
  std::filesystem::create_directories(file_.parent_path(), ignored);
  std::filesystem::path written = file_;
  written += ".new";
  if (const std::error_code error = WriteWhole(file_, written, text)) {
    throw InputError("پروندة تنظيمات نوشته نشد: " + LeftToRight(file_.string()) + " (" + ErrorText(error) +
                     ")");
  }
}

}  // namespace koru
