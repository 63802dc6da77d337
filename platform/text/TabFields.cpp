#include "platform/text/TabFields.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace koru {
namespace {

bool IsEscaped(char c) { return c == '\\' || c == '\t' || c == '\n'; }

bool Unescape(std::string_view written, std::string& text) {
  text.reserve(written.size());
  for (std::size_t at = 0; at < written.size(); ++at) {
    if (written[at] != '\\') {
      text += written[at];
      continue;
    }
    if (++at == written.size()) return false;
    const char escape = written[at];
    if (escape != 't' && escape != 'n' && escape != '\\') return false;
    text += escape == 't' ? '\t' : escape == 'n' ? '\n' : '\\';
  }
  return true;
}

}  // namespace

void AppendTabField(std::string& line, std::string_view text) {
  line += '\t';
  if (std::none_of(text.begin(), text.end(), IsEscaped)) {
    line += text;
    return;
  }
  for (const char c : text) {
    if (IsEscaped(c)) line += '\\';
    line += c == '\t' ? 't' : c == '\n' ? 'n' : c;
  }
}

std::optional<std::vector<std::string>> TabFields(std::string_view line) {
  std::vector<std::string> fields;
  for (;;) {
    const std::size_t tab = line.find('\t');
    if (!Unescape(line.substr(0, tab), fields.emplace_back())) return {};
    if (tab == std::string_view::npos) return fields;
    line.remove_prefix(tab + 1);
  }
}

}  // namespace koru
