#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "component/comInvCounting.h"
#include "database/Sample.h"
#include "lines/LineColumns.h"
#include "platform/text/Numbers.h"
#include "tests/counting/PlainStock.h"
#include "tests/support/DatabaseFixture.h"

namespace koru {

/// How a size is called in the name of a test.
static void PrintTo(SampleSize size, std::ostream* out) {
  *out << (size == SampleSize::Full ? "full size" : "a tenth");
}

}  // namespace koru

namespace koru::test {
namespace {

using Row = std::vector<std::string>;

/// A large sample, made once for all tests; each works on a copy.
std::string CopyOfSample(SampleSize size, const std::string& copy) {
  static TemporaryFolder folder;
  const std::string file = folder.File(size == SampleSize::Full ? "full.koru" : "medium.koru");
  if (!std::filesystem::exists(file)) CreateSample(file, size, {});
  std::filesystem::copy_file(file, copy);
  return copy;
}

/// Two copies of the sample that a test asks for. The component works on one; the other is always a file.
class SampleCopies : public testing::TestWithParam<SampleSize> {
 protected:
  TemporaryFolder folder;
  TestDatabase database{CopyOfSample(GetParam(), folder.File("large.koru"))};
  std::string plain = CopyOfSample(GetParam(), folder.File("plain.koru"));
};

/// The whole counting form over a large sample; its counting is being edited.
class LargeCounting : public SampleCopies, public ComponentFixture {
 protected:
  LargeCounting() : ComponentFixture(database.Connector()) {
    clock.SetToday(kSampleToday);
    screen.OnModal = [](koru::Form& form) {
      auto& search = dynamic_cast<frmGoodSearch&>(form);
      search.gmpInventory.UserSelect(Selector::kNothing);
      search.cmdSearch.UserClick();
    };
    control.SetOLEConnectionString(database.ConnectionText());
    control.SetUserID(1);
    EXPECT_TRUE(control.View(1));
    Form().Timer1.Fire();
    Click(Form().cmdEdit);
  }

  [[nodiscard]] frmInvCounting& Form() { return *control.CountingForm(); }
  [[nodiscard]] Grid& Lines() { return Form().flexDetail; }
  [[nodiscard]] std::string Cell(int row, int col) { return std::string(Lines().TextMatrix(row, col)); }
  [[nodiscard]] Row Cells(int row) {
    Row cells;
    for (int col = 0; col < Lines().Cols(); ++col) cells.push_back(Cell(row, col));
    return cells;
  }
  void Click(Button& button) {
    Form().Timer1.Fire();
    EXPECT_TRUE(button.UserClick()) << button.Name();
  }
  /// What another program writes while this one works: documents and units of every third good or so.
  void OthersWrite() {
    const std::string writing =
        "update tblInventoryReceipt set Code = null where ID % 3 = 0;"
        "update tblInventoryDispatch set InventoryID = 12 where ID % 5 = 0;"
        "update tblInventoryDispatchDetail set Value = Value + 7 where Value > 0 and Barcode like '%3';"
        "delete from tblGoodSaleScale where Barcode like '%7'";
    database.Execute(writing);
    SqliteConnection(plain, SqliteConnection::Mode::Existing, std::chrono::seconds(0)).Execute(writing);
  }

  /// The row that a calculation leaves where `row` was before.
  [[nodiscard]] static Row Calculated(Row row, const PlainLine& good) {
    const double accepted = Val(row[LineColumn::AcceptedCounting]);
    row[LineColumn::UnitName] = good.unitName;
    row[LineColumn::ScaleID] = good.unit;
    row[LineColumn::SystemCounting] = NumberText(good.books);
    if (!good.rate.empty()) row[LineColumn::Rate] = good.rate;
    const double rate = Val(row[LineColumn::Rate]);
    const double surplus = Round(accepted - good.books, 3);
    const bool more = good.books < accepted;
    const bool less = good.books > accepted;
    row[LineColumn::Surplus] = more ? NumberText(surplus) : "";
    row[LineColumn::SurplusAmount] = more ? NumberText(surplus * rate) : "";
    row[LineColumn::Shortage] = less ? NumberText(-surplus) : "";
    row[LineColumn::ShortageAmount] = less ? NumberText(-surplus * rate) : "";
    if (!row[LineColumn::AcceptedCounting].empty())
      row[LineColumn::CountedAmount] = NumberText(accepted * rate);
    return row;
  }
  /// The row of a good that has just been added.
  [[nodiscard]] static Row Added(int number, const PlainLine& good) {
    Row row(kLineColumns);
    row[LineColumn::RowNumber] = std::to_string(number);
    row[LineColumn::Barcode] = good.barcode;
    row[LineColumn::GoodCode] = good.code;
    row[LineColumn::GoodName] = good.name;
    row[LineColumn::UnitName] = good.unitName;
    row[LineColumn::ScaleID] = good.unit;
    row[LineColumn::SystemCounting] = NumberText(good.books);
    row[LineColumn::Rate] = good.rate;
    if (good.books <= 0) return row;
    row[LineColumn::Shortage] = NumberText(good.books);
    row[LineColumn::ShortageAmount] = NumberText(good.books * Val(good.rate));
    return row;
  }
  /// The row that the database must contain.
  [[nodiscard]] Row Stored(int row) {
    const auto number = [](const std::string& text) { return text.empty() ? "NULL" : NumberText(Val(text)); };
    Row stored = {Cell(row, LineColumn::Barcode), std::to_string(row),
                  number(Cell(row, LineColumn::ScaleID))};
    for (int col = LineColumn::FirstCounting; col <= LineColumn::SystemCounting; ++col)
      stored.push_back(number(Cell(row, col)));
    const double difference = Val(Cell(row, LineColumn::Surplus)) - Val(Cell(row, LineColumn::Shortage));
    stored.push_back(difference == 0 ? "NULL" : NumberText(difference));
    stored.push_back(NumberText(Val(Cell(row, LineColumn::Rate))));
    return stored;
  }
  /// All rows of a statement, numbers by their texts.
  [[nodiscard]] std::vector<Row> RowsOf(const std::string& sql) {
    Recordset records = database.Open(sql);
    std::vector<Row> rows;
    for (; !records.AtEnd(); records.MoveNext()) {
      Row& row = rows.emplace_back();
      for (std::size_t col = 0; col < records.Columns().size(); ++col)
        row.push_back(records.Field(col).IsNull() ? "NULL" : records.Field(col).Text());
    }
    return rows;
  }
  void ExpectStored() {
    const std::vector<Row> stored = RowsOf(
        "select Barcode, RowNumber, ScaleID, FirstCounting, SecondCounting, ThirdCounting, AcceptedCounting,"
        " SystemCounting, ContradictionCounting, BaseValue from tblInventoryCountingDetail where CountingID "
        "= 1"
        " order by RowNumber");
    ASSERT_EQ(stored.size() + 1, static_cast<std::size_t>(Lines().Rows()));
    for (int row = 1; row < Lines().Rows(); ++row)
      ASSERT_EQ(stored[static_cast<std::size_t>(row - 1)], Stored(row));
  }
  /// The lines of a document, by their barcodes.
  void ExpectDocument(const std::string& kind, int column) {
    std::map<std::string, Row> expected;
    for (int row = 1; row < Lines().Rows(); ++row) {
      if (Cell(row, column).empty()) continue;
      expected[Cell(row, LineColumn::Barcode)] = {Cell(row, column), Cell(row, LineColumn::ScaleID)};
    }
    const std::vector<Row> written =
        RowsOf("select Barcode, Qty, ScaleID, ScaleQty from tblInventory" + kind + "Detail where " + kind +
               "ID = (select " + kind + "ID from tblInventoryCounting where ID = 1)");
    ASSERT_EQ(written.size(), expected.size());
    EXPECT_GT(written.size(), 300U);
    for (const Row& line : written) ASSERT_EQ((Row{line[1], line[2]}), expected.at(line[0])) << line[0];
    for (const Row& line : written) ASSERT_EQ(line[1], line[3]);
  }
  /// Calculates and compares every line; answers how many of them are not as before.
  int CompareCalculation() {
    std::vector<Row> before;
    for (int row = 1; row < Lines().Rows(); ++row) before.push_back(Cells(row));
    Click(Form().cmdCalc);
    PlainStock stock(plain);
    int changed = 0;
    for (int row = 1; row < Lines().Rows(); ++row) {
      const Row& old = before[static_cast<std::size_t>(row - 1)];
      const Row now = Cells(row);
      EXPECT_EQ(now, Calculated(old, stock.LineOf(old[LineColumn::Barcode])));
      if (testing::Test::HasFailure()) break;
      changed += now == old ? 0 : 1;
    }
    return changed;
  }

  comInvCounting control{*this, Services()};
};

TEST_P(LargeCounting,
       A_calculation_gives_what_its_statements_give_one_by_one_also_after_others_have_written) {
  ASSERT_EQ(Lines().Rows() - 1, GetParam() == SampleSize::Full ? 32'767 : 3'276);
  CompareCalculation();
  OthersWrite();
  EXPECT_GT(CompareCalculation(), 2'000);
}

TEST_P(LargeCounting, Added_goods_get_what_their_statements_give_one_by_one_also_after_others_have_written) {
  for (const bool othersHaveWritten : {false, true}) {
    if (othersHaveWritten) OthersWrite();
    Lines().SetRows(1);
    Click(Form().cmdGoods);
    const std::vector<PlainLine> goods = PlainStock(plain).LinesOfAllGoods();
    const bool allFit = goods.size() <= static_cast<std::size_t>(kMaxLines);
    EXPECT_EQ(messages.Texts().empty(), allFit) << "beyond the limit a message is shown";
    messages.Forget();
    ASSERT_EQ(Lines().Rows() - 1, allFit ? static_cast<int>(goods.size()) : kMaxLines);
    // A server gives the goods in any order.
    std::map<std::string, const PlainLine*> byBarcode;
    for (const PlainLine& good : goods) byBarcode[good.barcode] = &good;
    for (int row = 1; row < Lines().Rows(); ++row) {
      const std::string barcode(Lines().TextMatrix(row, LineColumn::Barcode));
      ASSERT_TRUE(byBarcode.contains(barcode)) << barcode;
      ASSERT_EQ(Cells(row), Added(row, *byBarcode.at(barcode)));
      byBarcode.erase(barcode);
    }
  }
}

TEST_P(LargeCounting, A_save_and_a_registration_write_every_line_and_difference) {
  Click(Form().cmdTmpSave);
  ExpectStored();
  OthersWrite();
  Click(Form().cmdEdit);
  Click(Form().cmdCalc);
  Click(Form().cmdIsFinalized);
  EXPECT_EQ(messages.Texts(), Texts{});
  ExpectStored();
  ExpectDocument("Dispatch", LineColumn::Shortage);
  ExpectDocument("Receipt", LineColumn::Surplus);
}

/// The full size takes a minute and is asked for by ./bench.
SampleSize AskedFor() {
  return std::getenv("KORU_FULL_SIZE") == nullptr ? SampleSize::Medium : SampleSize::Full;
}

INSTANTIATE_TEST_SUITE_P(Sample, LargeCounting, testing::Values(AskedFor()));

}  // namespace
}  // namespace koru::test
