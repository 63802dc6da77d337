#include "adapters/provider/ConnectorByProvider.h"

#include "platform/sql/ConnectionText.h"
#include "platform/sql/DatabaseError.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

[[noreturn]] void Fail(const std::string& sentence) { throw DatabaseError(sentence, 0, {}); }

}  // namespace

std::unique_ptr<Database> ConnectorByProvider::Connect(const std::string& connectionText) {
  if (Trim(connectionText).empty() || Trim(connectionText) == "0") {
    Fail("هنوز پايگاه داده اي به اين فرم داده نشده است.");
  }
  const ConnectionText text = ConnectionText::Parse(connectionText);
  const std::string provider = text.Get("Provider");
  if (EqualsNoCase(provider, "SQLite")) return sqlite_.Connect(connectionText);
  if (EqualsNoCase(provider, "SQLOLEDB.1")) return odbc_.Connect(connectionText);
  Fail("نوع پايگاه داده (Provider) در رشته اتصال شناخته نشد: " + LeftToRight(text.WithoutPassword()));
}

}  // namespace koru
