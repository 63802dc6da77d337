// A connection text is read or refused with a sentence; every value survives being written and read again,
// and no password is in the text for people.

#include "platform/sql/ConnectionText.h"

#include <string>

#include "fuzz/Require.h"
#include "platform/sql/DatabaseError.h"

namespace {

using koru::ConnectionText;
using koru::fuzz::Require;

void CheckQuoting(const std::string& text) {
  const ConnectionText parsed =
      ConnectionText::Parse("Provider=SQLite;Data Source=" + koru::QuotedForConnection(text) + ";User=a");
  Require(parsed.Get("data source") == text, "a quoted value is read as it was written");
  Require(parsed.WithoutPassword() == "Provider=SQLite;Data Source=" + text + ";User=a;",
          "a quoted value is one value");
}

void CheckRewriting(const ConnectionText& parsed) {
  constexpr const char* kKeys[] = {"Provider", "Data Source", "Initial Catalog", "User ID", "Password"};
  std::string written;
  for (const std::string key : kKeys) {
    written += key + "=" + koru::QuotedForConnection(parsed.Get(key)) + ";";
  }
  const ConnectionText again = ConnectionText::Parse(written);
  for (const char* key : kKeys)
    Require(again.Get(key) == parsed.Get(key), "values survive being written again");
}

void CheckPasswords(const std::string& password) {
  constexpr std::string_view kSecret = "-a secret that is nowhere else-";
  const std::string text =
      "Data Source=a;pwd=" + koru::QuotedForConnection(password + std::string(kSecret) + password);
  const std::string shown = ConnectionText::Parse(text).WithoutPassword();
  Require(shown.find(kSecret) == std::string::npos, "no password is in the text for people");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(koru::fuzz::TextOf(data, size));
  CheckQuoting(text);
  CheckPasswords(text);
  try {
    CheckRewriting(ConnectionText::Parse(text));
  } catch (const koru::DatabaseError& refused) {
    Require(!refused.ServerText().empty(), "a refusal has a sentence");
  }
  return 0;
}
