#include "tests/adapters/sheet/PackedBytes.h"

#include <zip.h>

#include <stdexcept>

namespace koru::test {

std::string PackedBytes(const Parts& parts, bool compressed) {
  zip_source_t* const target = zip_source_buffer_create(nullptr, 0, 0, nullptr);
  zip_t* const archive = zip_open_from_source(target, ZIP_TRUNCATE, nullptr);
  if (archive == nullptr) throw std::runtime_error("no ZIP file can be made");
  zip_source_keep(target);
  for (const auto& [name, content] : parts) {
    zip_source_t* const part = zip_source_buffer(archive, content.data(), content.size(), 0);
    const zip_int64_t place = zip_file_add(archive, name.c_str(), part, 0);
    if (place < 0) throw std::runtime_error("a part cannot be added");
    if (!compressed) zip_set_file_compression(archive, static_cast<zip_uint64_t>(place), ZIP_CM_STORE, 0);
  }
  if (zip_close(archive) != 0) throw std::runtime_error("the ZIP file cannot be written");
  zip_stat_t size;
  if (zip_source_stat(target, &size) != 0 || zip_source_open(target) != 0)
    throw std::runtime_error("the ZIP file cannot be read");
  std::string bytes(size.size, '\0');
  zip_source_read(target, bytes.data(), bytes.size());
  zip_source_close(target);
  zip_source_free(target);
  return bytes;
}

Parts WorkbookParts(const std::string& rows, const std::string& texts) {
  constexpr const char* kType = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";
  const std::string relation = std::string("<Relationship Type=\"") + kType;
  return {
      {"_rels/.rels",
       "<Relationships>" + relation + "officeDocument\" Id=\"r1\" Target=\"/xl/book.xml\"/></Relationships>"},
      {"xl/book.xml", "<workbook><sheets><sheet name=\"\u0628\" r:id=\"r1\"/></sheets></workbook>"},
      {"xl/_rels/book.xml.rels", "<Relationships>" + relation +
                                     "worksheet\" Id=\"r1\" Target=\"worksheets/a.xml\"/>" + relation +
                                     "sharedStrings\" Id=\"r2\" Target=\"texts.xml\"/></Relationships>"},
      {"xl/worksheets/a.xml", "<worksheet><sheetData>" + rows + "</sheetData></worksheet>"},
      {"xl/texts.xml", "<sst>" + texts + "</sst>"},
  };
}

}  // namespace koru::test
