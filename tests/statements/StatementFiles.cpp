#include "tests/statements/StatementFiles.h"

#include <map>
#include <set>
#include <utility>

namespace koru::test {
namespace {

/// Shorter constants (" and ", "'") are in every file.
constexpr std::size_t kMinTellingLength = 8;

/// What a file has of a statement: first the bytes of its beginning, then those of all constants that are in
/// it.
using Share = std::pair<std::size_t, std::size_t>;

std::size_t BeginningIn(const std::string& statement, const std::string& text) {
  const std::string call = "{? = CALL " + text + "(";
  if (statement.starts_with(call)) return call.size();
  return statement.starts_with(text) ? text.size() : 0;
}

std::map<std::string, Share> SharesOf(const std::string& statement, const std::vector<SourceText>& texts) {
  std::map<std::string, Share> shares;
  std::map<std::string, std::set<std::string>> counted;
  for (const SourceText& source : texts) {
    if (source.text.size() < kMinTellingLength) continue;
    Share& share = shares[source.file];
    share.first = std::max(share.first, BeginningIn(statement, source.text));
    if (statement.find(source.text) != std::string::npos && counted[source.file].insert(source.text).second)
      share.second += source.text.size();
  }
  return shares;
}

}  // namespace

std::string FileOfStatement(const std::string& statement, const std::vector<SourceText>& texts) {
  Share most{1, 0};
  std::string files;
  for (const auto& [file, share] : SharesOf(statement, texts)) {
    if (share < most) continue;
    files = share == most && !files.empty() ? files + " or " + file : file;
    most = share;
  }
  return files;
}

}  // namespace koru::test
