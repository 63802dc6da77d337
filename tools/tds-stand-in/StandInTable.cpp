#include "tools/tds-stand-in/StandInTable.h"

#include <utility>

#include "platform/text/Text.h"
#include "tools/tds-stand-in/ServerDays.h"
#include "tools/tds-stand-in/ServerRefusals.h"

namespace koru::test {
namespace {

std::string Rule(int number, const std::string& column, const std::string& condition) {
  return " constraint \"" + RuleName(number, column) + "\" check(" + condition + ")";
}

class TableReader {
 public:
  explicit TableReader(const ServerBatch& batch) : batch_(batch) { table_.name = batch.Word(2); }

  StandInTable Read() {
    std::string parts;
    constexpr std::size_t kFirstPart = 4;
    for (std::size_t at = kFirstPart; at < batch_.Size(); at = end_ + 1) {
      end_ = batch_.EndOfPart(at);
      parts += (parts.empty() ? "" : ",") + Part(at);
    }
    table_.statements.insert(table_.statements.begin(),
                             "create table " + table_.name + " (" + parts + ") strict");
    return std::move(table_);
  }

 private:
  std::string Part(std::size_t at) {
    if (batch_.Has(at, {"primary", "key"})) {
      table_.isClustered = true;
      return batch_.Between(at, end_);
    }
    return batch_.Has(at + 1, {"as"}) ? Computed(at) : Column(at);
  }

  std::string Computed(std::size_t at) {
    const std::string column = batch_.Word(at);
    const std::size_t end = batch_.Has(end_ - 1, {"persisted"}) ? end_ - 1 : end_;
    const std::string expression = batch_.Between(at + 2, end);
    table_.computed[LowerAscii(column)] = expression;
    return column + " any collate KORU generated always as (" + expression + ")";
  }

  std::string Column(std::size_t at) {
    const std::string column = batch_.Word(at);
    const std::string type = LowerAscii(batch_.Word(at + 1));
    const bool hasLength = type == "nvarchar";
    const std::string length = hasLength ? batch_.Word(at + 3) : std::string();
    isKey_ = false;
    const std::string properties = Properties(at + (hasLength ? 5 : 2), column);
    return column + " " + EngineType(type, column) + properties + Rules(type, column, length);
  }

  /// The words after the type.
  std::string Properties(std::size_t at, const std::string& column) {
    std::string properties;
    for (; at < end_; ++at) {
      if (batch_.Has(at, {"not", "null"})) {
        properties += " not null";
        ++at;
      } else if (batch_.Has(at, {"default", ""})) {
        properties += " default " + batch_.Word(++at);
      } else if (batch_.Has(at, {"identity", "(", "1", ",", "1", ")"})) {
        table_.identity = column;
        at += 5;
      } else if (batch_.Has(at, {"primary", "key"})) {
        isKey_ = table_.isClustered = true;
        ++at;
      } else if (!batch_.Has(at, {"null"})) {
        throw NotKnownHere(batch_.Between(at, end_), batch_.Text());
      }
    }
    if (isKey_) properties += " primary key";
    if (table_.identity != column) return properties;
    if (!isKey_) throw NotKnownHere("an identity that is no key: " + column, batch_.Text());
    return properties + " autoincrement";
  }

  /// The engine numbers the rows of a table whose key is an `integer`.
  [[nodiscard]] std::string EngineType(const std::string& type, const std::string& column) const {
    if (type == "int" && isKey_ && table_.identity != column) return "int";
    if (type == "int" || type == "bit") return "integer";
    if (type == "float") return "real";
    return type == "datetime" ? "text" : "text collate KORU";
  }

  std::string Rules(const std::string& type, const std::string& column, const std::string& length) {
    if (type == "int") return Rule(8115, column, column + " between -2147483648 and 2147483647");
    if (type == "datetime") {
      for (const char* event : {"insert", "update"}) {
        table_.statements.push_back(EmptyDayTrigger(table_.name, column, event));
      }
      return DayRules(column);
    }
    // Two bytes are a unit, as the engine keeps its texts in UTF-16.
    if (type == "nvarchar" && !EqualsNoCase(length, "max")) {
      return Rule(8152, column, "length(cast(" + column + " as blob))<=2*" + length);
    }
    return {};
  }

  const ServerBatch& batch_;
  StandInTable table_;
  std::size_t end_ = 0;  ///< of the part that is read
  bool isKey_ = false;   ///< of the column that is read
};

}  // namespace

StandInTable ReadTable(const ServerBatch& batch) { return TableReader(batch).Read(); }

}  // namespace koru::test
