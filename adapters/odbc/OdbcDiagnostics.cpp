#include "adapters/odbc/OdbcDiagnostics.h"

#include <algorithm>
#include <array>

#include "adapters/odbc/OdbcHandle.h"
#include "adapters/odbc/WideText.h"

namespace koru {
namespace {

constexpr std::size_t kStateLength = 5;
constexpr SQLSMALLINT kMaxRecords = 20;

/// How specific a record is. Class 01 is a warning; 08001 accompanies every reason for a failed connection.
int Weight(const Diagnostic& diagnostic) {
  if (diagnostic.state.starts_with("01")) return 0;
  if (diagnostic.state == "08001" && diagnostic.native == 0) return 1;
  return diagnostic.native == 0 ? 2 : 3;
}

}  // namespace

std::vector<Diagnostic> ReadDiagnostics(std::int16_t kind, void* handle) {
  std::vector<Diagnostic> diagnostics;
  std::u16string text(1024, u'\0');
  for (SQLSMALLINT record = 1; record <= kMaxRecords; ++record) {
    std::array<SQLWCHAR, kStateLength + 1> state{};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    const auto read = [&] {
      return SQLGetDiagRecW(kind, handle, record, state.data(), &native, Units(text),
                            static_cast<SQLSMALLINT>(text.size()), &length);
    };
    SQLRETURN result = read();
    if (result == SQL_SUCCESS_WITH_INFO && length >= static_cast<SQLSMALLINT>(text.size())) {
      text.resize(static_cast<std::size_t>(length) + 1);
      result = read();
    }
    if (!SQL_SUCCEEDED(result)) break;
    const std::size_t size = std::min(text.find(u'\0'), text.size());
    diagnostics.push_back({std::string(state.begin(), state.begin() + kStateLength), native,
                           ToUtf8(std::u16string_view(text).substr(0, size))});
  }
  return diagnostics;
}

Diagnostic MostUseful(const std::vector<Diagnostic>& diagnostics) {
  const auto best = std::max_element(diagnostics.begin(), diagnostics.end(),
                                     [](const auto& a, const auto& b) { return Weight(a) < Weight(b); });
  return best == diagnostics.end() ? Diagnostic{} : *best;
}

DatabaseCause CauseOf(const Diagnostic& diagnostic) {
  if (diagnostic.state.starts_with("08")) return DatabaseCause::Away;
  switch (diagnostic.native) {  // the server's own numbers
    case 1101:                  // no space in the data file
    case 1105:                  // no space for an object
    case 9002:                  // the transaction log is full
      return DatabaseCause::DiskFull;
    case 1205:  // chosen as the victim of a deadlock
    case 1222:  // a lock was not granted in time
      return DatabaseCause::Locked;
    case 3906:  // a read-only database
      return DatabaseCause::ReadOnly;
    case 823:  // the operating system reports an error
    case 824:  // a page is not consistent
    case 825:  // a page was read in a second try
      return DatabaseCause::InputOutput;
    default:
      return DatabaseCause::Other;
  }
}

bool HasState(const std::vector<Diagnostic>& diagnostics, const std::string& state) {
  return std::any_of(diagnostics.begin(), diagnostics.end(),
                     [&](const Diagnostic& diagnostic) { return diagnostic.state == state; });
}

std::string Described(const Diagnostic& diagnostic) {
  return diagnostic.text + " (" + diagnostic.state + ", " + std::to_string(diagnostic.native) + ")";
}

}  // namespace koru
