#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "adapters/sqlite/Dialect.h"
#include "adapters/sqlite/NormalizedStatement.h"
#include "tests/support/TestFile.h"

namespace koru {
namespace {

constexpr const char* kFile = KORU_SOURCES "/adapters/sqlite/README.md";

constexpr const char* kHead = R"(# The embedded dialect

The component sends statements in the dialect of the suite's server. This page shows what SQLite runs for them. A test
writes and compares it, `tests/adapters/sqlite/DialectPage_test.cpp`; after a change to a pass:

    KORU_RENEW_STATEMENTS=1 build/dev/koru_test_adapters_sqlite --gtest_filter=DialectPage.*

## The passes

| pass | where | what it does and why |
|---|---|---|
| normalize | `NormalizedStatement` | replaces literals by parameters and removes comments. Statements that differ only in literals have the same text, the key of the cache of prepared statements |
| hoist an `in` subquery | `HoistedSubquery`, `InSubquery` | inside a snapshot: runs `select key from T where ...` once and replaces the `in` by a lookup of the key. SQLite would run the subquery again for every statement |
| hoist a join | `HoistedSubquery`, `LineDocumentJoin` | inside a snapshot: the same for `from D,T where key=X and ...`. The rank of a key is its position in the order, so that the documents need not be read to sort |
| one list | `HoistedSubquery` | in a hoisted subquery, `(S=n or S in (select ...))` becomes `(S in (select n union all select ...))`, where `S` is an integer column of `T`. For an `or`, SQLite searches the index of `S` twice and keeps the rows found, in order not to return one twice |
| `delete T` | `Dialect` | becomes `delete from T` |
| `top n` | `Dialect` | becomes `limit n` at the end of its select |
| `isnull(a,b)` | `Dialect` | becomes `ifnull(a,b)`; in SQLite `isnull` is an operator |
| collation | `Dialect` | a text compared with an expression gets `collate KORU`: in SQLite an expression loses the collation of its column |
| order of equal lines | `Dialect`, `LineDocumentJoin` | `from D,T where key=X ... order by C desc` gets `,key desc,D.rowid desc`: of the documents of one date, and of the lines of one document, what was entered last comes first, in every run. Ascending without `desc` |

A snapshot (`Snapshot`) is a read transaction around many statements, such as those of a calculation. The keys that a hoisted
subquery found are a `RankedKeySet`, and `koru_key_rank(set, key)` returns the rank of a key, or NULL. A set is kept for the
literals that it was selected with, until the snapshot ends: within it the data cannot change. A statement that writes ends the
snapshot.

A subquery is hoisted only if its rows are the same for every row of the statement and its term must be true for each row found:
the term is joined by `and`, `X` is an integer column of the only other table, `key` is an integer primary key, and the
subquery is not correlated. Otherwise the statement runs as it does outside a snapshot.

## Statements before and after

`?1`, `?2`, ... are the literals in their order. In the last column, `?n = set of` is the hoisted subquery, with the literals
numbered as in the statement.

| sent | outside a snapshot | inside a snapshot |
|---|---|---|
)";

/// One statement for each pass, then those of a calculation.
const std::vector<std::string> kStatements = {
    "Select ID -- the key\n from tblUser where FullName='O''Neil' and ID<7",
    "delete tblInventoryCountingDetail where CountingID=5",
    "Select top 1 Name from vwPelinCompany",
    "select isnull(max(isnull(code,0)),0) as maxcode from tblInventoryCounting",
    "select Name from tblGood where Name='a' and LTrim(Barcode)='b'",
    "Select ID,Name from tblGoodScale Where isnull(ScaleToBaseParent,0)=1 and ID in (Select ScaleID from "
    "tblGoodSaleScale Where Barcode = '626')",
    "Select isnull(sum(isnull(Qty,0)),0) as Qty from tblInventoryReceiptDetail where LTrim(RTrim(Barcode))="
    "'626' and ReceiptID in (select ID from tblInventoryReceipt where ReceiveDate>='2025-03-21' and  Code is "
    "not NULL and (InventoryID=1 or InventoryID in (Select ChildID from tblInventoryParent Where ID=1)))",
    "Select isnull(Value,0) as Value from tblInventoryDispatchDetail,tblInventoryDispatch Where "
    "ID=DispatchID and Barcode='626' and Isnull(Value,0)>0 and  Code is not NULL and (InventoryID=1 or "
    "InventoryID in (Select ChildID from tblInventoryParent Where ID=1)) Order By ReceiveDate Desc",
    "select Qty from tblInventoryReceiptDetail where ReceiptID in (select ID from tblInventoryReceipt where "
    "Code=1) or Qty>2",
    "select Qty from tblInventoryReceiptDetail where ReceiptID in (select ID from tblInventoryReceipt where "
    "Code=Qty)",
};

/// A cell of a table: one line, in a code span.
std::string Code(std::string text) {
  std::replace(text.begin(), text.end(), '\n', ' ');
  return "`" + text + "`";
}

/// The parameters of a hoisted subquery, renamed to the literals of the statement that they take.
std::string WithLiteralsOfStatement(const HoistedStatement::Subquery& subquery) {
  const std::string sql = subquery.sql + subquery.order;
  std::string renamed;
  for (std::size_t at = 0; at < sql.size(); ++at) {
    renamed += sql[at];
    if (sql[at] != '?') continue;
    std::size_t digits = 0;
    const int parameter = std::stoi(sql.substr(at + 1), &digits);
    renamed += std::to_string(subquery.literals.at(static_cast<std::size_t>(parameter - 1)));
    at += digits;
  }
  return renamed;
}

std::string InsideSnapshot(const std::string& normalized, SqliteConnection& connection) {
  const std::string plain = TranslateOrdered(normalized, connection);
  if (!connection.Prepare(plain).IsReadOnly()) return "ends the snapshot";
  const HoistedStatement hoisted = TranslateHoisted(normalized, connection);
  if (hoisted.subqueries.empty()) return hoisted.sql == plain ? "the same" : Code(hoisted.sql);
  std::string cell = Code(hoisted.sql);
  for (const HoistedStatement::Subquery& subquery : hoisted.subqueries) {
    cell += "<br>`?" + std::to_string(subquery.parameter) + "` = set of " +
            Code(WithLiteralsOfStatement(subquery));
  }
  return cell;
}

std::string Page() {
  const test::TestFile database;
  SqliteConnection connection(database.File(), SqliteConnection::Mode::Existing, std::chrono::seconds(0));
  std::string page = kHead;
  for (const std::string& statement : kStatements) {
    const std::string normalized = Normalize(statement).text;
    page += "| " + Code(statement) + " | " + Code(TranslateOrdered(normalized, connection)) + " | " +
            InsideSnapshot(normalized, connection) + " |\n";
  }
  return page;
}

TEST(DialectPage, Shows_what_SQLite_runs) {
  const std::string page = Page();
  if (std::getenv("KORU_RENEW_STATEMENTS") != nullptr) std::ofstream(kFile, std::ios::binary) << page;
  std::ifstream stream(kFile, std::ios::binary);
  const std::string stored((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
  const auto differs = std::mismatch(page.begin(), page.end(), stored.begin(), stored.end());
  EXPECT_TRUE(page == stored) << "adapters/sqlite/README.md differs from the dialect, first at line "
                              << std::count(page.begin(), differs.first, '\n') + 1
                              << "; its head says how to renew it";
}

}  // namespace
}  // namespace koru
