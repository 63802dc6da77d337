#include "adapters/sheet/WorkbookTable.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "adapters/sheet/PackedParts.h"
#include "adapters/sheet/SheetXml.h"
#include "platform/text/Errors.h"

namespace koru {
namespace {

constexpr const char* kNoWorkbook = "كارپوشة اكسل (xlsx) نيست.";

using Relations = std::map<std::string, PartRelation>;

/// A part that another one refers to, by its name in the file.
std::string Resolved(const std::string& folder, const std::string& target) {
  return target.starts_with('/') ? target.substr(1) : folder + target;
}

std::string FolderOf(const std::string& part) { return part.substr(0, part.rfind('/') + 1); }

Relations RelationsOf(const PackedParts& parts, const std::string& part) {
  const std::string folder = FolderOf(part);
  const std::string name = folder + "_rels/" + part.substr(folder.size()) + ".rels";
  if (!parts.Has(name)) return {};
  return ReadRelations(*parts.Open(name));
}

/// The part of that type; empty if there is none.
std::string PartOfType(const Relations& relations, const std::string& folder, std::string_view type) {
  const auto found = std::find_if(relations.begin(), relations.end(),
                                  [&](const auto& relation) { return relation.second.type == type; });
  return found == relations.end() ? std::string() : Resolved(folder, found->second.target);
}

std::vector<SheetEntry> VisibleSheets(std::vector<SheetEntry> sheets) {
  const auto isHidden = [](const SheetEntry& sheet) { return sheet.hidden; };
  if (!std::all_of(sheets.begin(), sheets.end(), isHidden))
    sheets.erase(std::remove_if(sheets.begin(), sheets.end(), isHidden), sheets.end());
  return sheets;
}

/// Reports the progress over several parts together.
class PartsProgress {
 public:
  PartsProgress(const TableFiles::Progress& progress, std::int64_t size) : progress_(progress), size_(size) {}

  [[nodiscard]] PartProgress Of(std::int64_t before) const {
    return [this, before](std::int64_t bytes) {
      constexpr std::int64_t kPermille = 1000;
      const std::int64_t share = (before + bytes) * kPermille / std::max<std::int64_t>(size_, 1);
      return progress_(static_cast<int>(std::clamp<std::int64_t>(share, 0, kPermille)));
    };
  }

 private:
  const TableFiles::Progress& progress_;
  std::int64_t size_;
};

std::optional<FileTable> ReadSheet(const PackedParts& parts, const std::string& sheet,
                                   const std::string& texts, const TableFiles::Progress& progress) {
  const std::int64_t textsSize = texts.empty() ? 0 : parts.SizeOf(texts);
  const PartsProgress shown(progress, textsSize + parts.SizeOf(sheet));
  std::vector<std::string> shared;
  if (!texts.empty() && parts.Has(texts)) {
    auto read = ReadSharedTexts(*parts.Open(texts), shown.Of(0));
    if (!read) return std::nullopt;
    shared = std::move(*read);
  }
  TableBuilder table;
  if (!ReadCells(*parts.Open(sheet), shared, table, shown.Of(textsSize))) return std::nullopt;
  return table.Take();
}

}  // namespace

std::optional<FileTable> ReadWorkbookTable(std::string_view bytes, std::size_t sheet,
                                           const TableFiles::Progress& progress) {
  const PackedParts parts(bytes);
  std::string workbook = PartOfType(RelationsOf(parts, ""), "", "officeDocument");
  if (workbook.empty()) workbook = "xl/workbook.xml";
  if (!parts.Has(workbook)) throw InputError(kNoWorkbook);
  const std::vector<SheetEntry> sheets = VisibleSheets(ReadSheetList(*parts.Open(workbook)));
  if (sheet >= sheets.size()) throw InputError("برگه\u200cاي ندارد.");
  const Relations relations = RelationsOf(parts, workbook);
  const auto relation = relations.find(sheets[sheet].relation);
  if (relation == relations.end()) throw InputError(kNoWorkbook);
  const std::string folder = FolderOf(workbook);
  auto table = ReadSheet(parts, Resolved(folder, relation->second.target),
                         PartOfType(relations, folder, "sharedStrings"), progress);
  if (!table) return std::nullopt;
  for (const SheetEntry& entry : sheets) table->sheets.push_back(entry.name);
  table->sheet = sheet;
  return table;
}

}  // namespace koru
