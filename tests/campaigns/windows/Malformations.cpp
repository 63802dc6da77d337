#include "tests/campaigns/windows/Malformations.h"

#include <filesystem>
#include <fstream>
#include <random>

#include "adapters/sqlite/SqliteConnection.h"

namespace koru::test {
namespace {

namespace fs = std::filesystem;

/// Spoils the file by statements in SQLite's own dialect.
Malformation BySql(std::string name, std::string sql) {
  return {std::move(name), [sql = std::move(sql)](const std::string& file) {
            SqliteConnection connection(file, SqliteConnection::Mode::Existing, std::chrono::seconds(5));
            connection.Execute(sql);
            connection.Execute("PRAGMA wal_checkpoint(TRUNCATE)");
          }};
}

/// A table without its types and its rules, holding the same rows.
std::string Untyped(const std::string& table) {
  return "create table Copy as select * from " + table + "; PRAGMA legacy_alter_table=ON; drop table " +
         table + "; alter table Copy rename to " + table + ";";
}

void Overwrite(const std::string& file, std::size_t from, std::size_t size) {
  std::mt19937 random(5);
  std::fstream stream(file, std::ios::in | std::ios::out | std::ios::binary);
  stream.seekp(static_cast<std::streamoff>(from));
  for (std::size_t byte = 0; byte < size; ++byte) stream.put(static_cast<char>(random()));
}

std::vector<Malformation> OfTables() {
  std::vector<Malformation> all;
  for (const char* table : {"tblUser", "tblInventory", "tblInventoryParent", "tblGood", "tblGoodScale",
                            "tblInventoryCounting", "tblInventoryCountingDetail", "tblPelinUserPermission",
                            "tblPelinReportTemplate", "tblInventoryReceiptDetail"}) {
    all.push_back(BySql("no_" + std::string(table), "drop table " + std::string(table)));
  }
  for (const char* view :
       {"vwInventoryCounting", "vwInventoryCountingPrint", "vwPelinBasePath", "vwPelinCompany"}) {
    all.push_back(BySql("no_" + std::string(view), "drop view " + std::string(view)));
  }
  all.push_back(BySql("no_column_Notes",
                      "PRAGMA legacy_alter_table=ON; drop view vwInventoryCountingPrint; drop view "
                      "vwInventoryCounting; alter table tblInventoryCounting drop column Notes"));
  all.push_back(BySql("no_column_FullName",
                      "PRAGMA legacy_alter_table=ON; drop view vwInventoryCountingPrint; drop view "
                      "vwInventoryCounting; alter table tblUser drop column FullName"));
  return all;
}

std::vector<Malformation> OfRows() {
  return {
      BySql("texts_in_quantities", Untyped("tblInventoryCountingDetail") +
                                       "update tblInventoryCountingDetail set AcceptedCounting='زياد', "
                                       "FirstCounting='', RowNumber='يك'"),
      BySql("texts_in_keys",
            Untyped("tblInventoryCounting") +
                "update tblInventoryCounting set InventoryID='انبار', CreatorID='x', Code='بيست'"),
      BySql("nulls_in_names",
            Untyped("tblUser") + Untyped("tblGood") + Untyped("tblInventory") +
                "update tblUser set FullName=null; update tblGood set Name=null, Barcode=null; "
                "update tblInventory set Name=null"),
      BySql("nulls_in_countings",
            "update tblInventoryCounting set InventoryID=null, CreatorID=null, CreateDate=null, "
            "FarsiCreateDate=null, FromDate=null, Notes=null"),
      BySql("huge_numbers",
            "update tblInventoryCountingDetail set AcceptedCounting=9e307, SystemCounting=-9e307, "
            "BaseValue=9e307, ContradictionCounting=1.7e308"),
      BySql("huge_keys",
            "update tblInventoryCounting set Code=9223372036854775807, CounterEmployeeID1=9000000000000"),
      BySql("dates_that_are_none",
            "update tblInventoryCounting set CreateDate='2025-02-30', FromDate='ديروز', ToDate=''"),
      BySql("dates_before_the_first_year",
            "update tblInventoryCounting set CreateDate='0001-01-01', FromDate='0001-01-01', "
            "ToDate='0500-01-01'"),
      BySql("blobs_in_texts",
            Untyped("tblInventoryCounting") + Untyped("tblGood") +
                "update tblInventoryCounting set Notes=x'ff00fe', ManualCode=x'00'; update tblGood set "
                "Name=x'c328a0a1'"),
      BySql("texts_that_are_too_long",
            "update tblInventoryCounting set Notes=hex(zeroblob(10000)), ManualCode=hex(zeroblob(3000))"),
      BySql("a_store_above_itself",
            "update tblInventory set ParentID=ID; insert or ignore into tblInventoryParent "
            "select ID, ID from tblInventory"),
      BySql("stores_in_a_circle",
            "update tblInventory set ParentID=(select max(ID) from tblInventory) where ID=(select "
            "min(ID) from tblInventory); update tblInventory set ParentID=(select min(ID) from "
            "tblInventory) where ID=(select max(ID) from tblInventory)"),
      BySql("no_rows",
            "delete from tblUser; delete from tblInventory; delete from tblGood; delete from "
            "tblInventoryCounting; delete from tblPelinReportTemplate; delete from tblPelinCompany"),
      BySql("report_files_that_are_none",
            "update tblPelinReportTemplate set FilePath='/no/such/file', Title=''"),
  };
}

std::vector<Malformation> OfFiles() {
  return {
      BySql("of_another_program", "PRAGMA application_id=7"),
      BySql("of_a_newer_version", "PRAGMA user_version=99"),
      {"empty", [](const std::string& file) { fs::resize_file(file, 0); }},
      {"a_truncated_file", [](const std::string& file) { fs::resize_file(file, fs::file_size(file) / 2); }},
      {"a_file_of_the_first_page", [](const std::string& file) { fs::resize_file(file, 4096); }},
      {"garbage_for_the_first_page", [](const std::string& file) { Overwrite(file, 0, 4096); }},
      {"garbage_for_the_schema", [](const std::string& file) { Overwrite(file, 100, 3000); }},
      {"garbage_in_the_middle",
       [](const std::string& file) { Overwrite(file, fs::file_size(file) / 3, fs::file_size(file) / 3); }},
      {"garbage_for_the_log",
       [](const std::string& file) { std::ofstream(file + "-wal") << std::string(9000, 'x'); }},
      {"a_text",
       [](const std::string& file) { std::ofstream(file, std::ios::trunc) << "اين پايگاه داده نيست\n"; }},
      {"missing", [](const std::string& file) { fs::remove(file); }},
      {"a_folder",
       [](const std::string& file) {
         fs::remove(file);
         fs::create_directory(file);
       }},
      {"locked", [](const std::string& /*file*/) {}, true},
  };
}

}  // namespace

std::vector<Malformation> Malformations() {
  std::vector<Malformation> all = OfTables();
  for (auto&& more : {OfRows(), OfFiles()}) all.insert(all.end(), more.begin(), more.end());
  return all;
}

}  // namespace koru::test
