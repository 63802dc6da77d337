#include "tests/support/HostileTexts.h"

#include <array>
#include <set>

namespace koru {
namespace {

constexpr std::array kFragments = {
    "'",
    "''",
    "'''",
    "''''",
    "'''''",
    "' '",
    "'' ''",
    "';",
    "'';",
    "'; delete tblInventoryCounting; --",
    "''; delete tblInventoryCounting; --",
    "'); delete tblInventoryCountingDetail where (1=1",
    "''); delete tblInventoryCountingDetail where (1=1",
    "' or 1=1 --",
    "'' or ''1''=''1",
    "' or ''='",
    "' where id=1 --",
    "',ManualCode='x",
    "','','','",
    "'+(select max(id) from tblInventoryCounting)+'",
    "'||'",
    "-- ",
    "--'",
    "--''",
    "/*",
    "*/",
    "/*'*/",
    "/*''*/",
    "/* ' */ '",
    ";",
    ";'",
    ";;go",
    "%",
    "%'",
    "%''",
    "_",
    "[",
    "]",
    "[']",
    "['']",
    "[^']",
    "[^'']",
    "{?=call x}",
    "?",
    "@p",
    "\"",
    "\"'\"",
    "\"''\"",
    "`",
    "\\",
    "\\'",
    "\\''",
    "N'",
    "N''",
    "N'x'",
    "0x27",
    "char(39)",
    "NULL",
    "Null'",
    "‘",
    "’",
    "‘'’",
    "“''”",
    "ʼ",
    "ʹ",
    "′",
    "＇",
    "＇''",
    "«'»",
    "«''»",
    "؛",
    "؛'",
    "ي'",
    "ک''",
    "\xE2\x80\x8C'",
    "\xE2\x80\x8F''",
    "\xC2\xA0'",
    "\n'",
    "\r\n--''",
    "\t;",
    "😀'",
    "😀''",
};

}  // namespace

std::vector<std::string> HostileTexts() {
  std::set<std::string> texts;
  for (const std::string fragment : kFragments) {
    texts.insert(fragment);
    texts.insert(fragment + "b");
    texts.insert("شمارش" + fragment + "كالا");
  }
  return {texts.begin(), texts.end()};
}

bool StaysInLiteral(std::string_view text) {
  bool even = true;
  for (const char c : text) {
    if (c == '\'') {
      even = !even;
    } else if (!even) {
      return false;
    }
  }
  return even;
}

std::string MeaningOf(std::string_view text) {
  std::string meaning;
  for (std::size_t at = 0; at < text.size(); ++at) {
    meaning += text[at];
    if (text[at] == '\'') ++at;
  }
  return meaning;
}

}  // namespace koru
