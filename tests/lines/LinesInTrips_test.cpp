#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <random>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "lines/AddGoods.h"
#include "platform/sql/DatabaseError.h"
#include "tests/lines/StoredLinesTest.h"

// Calculate and Goods over a database that takes several statements in a round trip. What they read and what
// they leave, also after a failure, must be the same as with one statement in a trip.

namespace koru {
namespace {

/// Store 1 with the child 2, three base units, and goods "00" to "99" of which some have units and documents.
class LinesInTrips : public StoredLinesTest {
 protected:
  void SetUp() override {
    Execute(
        "insert into tblInventoryParent (ID,ChildID) values (1,2);"
        "insert into tblGoodScale (ID,Name,ScaleToBaseParent) values (4,'كيلو',1),(2,'عدد',1),(1,'كارتن',12);"
        "insert into tblInventoryReceipt (ID,Code,InventoryID,ReceiveDate) values (1,1,1,'2025-04-01'),"
        "(2,2,2,'2025-05-01'),(3,NULL,1,'2025-06-01');"
        "insert into tblInventoryDispatch (ID,Code,InventoryID,ReceiveDate) values (1,1,1,'2025-04-02'),"
        "(2,2,2,'2025-05-02')");
    form.gmpInventory.Select(1);
  }

  static std::string Barcode(int good) { return (good < 10 ? "0" : "") + std::to_string(good); }

  /// Units and documents of the goods.
  void FillBooks(std::mt19937& random) {
    const auto one = [&](int of) { return std::uniform_int_distribution<int>(0, of - 1)(random); };
    std::string rows;
    for (int good = 0; good < 100; ++good) {
      const std::string barcode = "'" + Barcode(good) + "'";
      rows += "insert into tblGood (Barcode,Code,Name) values (" + barcode + ",'c','name');";
      if (one(2) == 0) rows += "insert into tblGoodSaleScale (Barcode,ScaleID) values (" + barcode + ",4);";
      for (const char* kind : {"Receipt", "Dispatch"}) {
        if (one(2) == 0) continue;
        rows += std::string("insert into tblInventory") + kind + "Detail (" + kind +
                "ID,Barcode,Qty,Value) values (" + std::to_string(1 + one(2)) + "," + barcode + "," +
                std::to_string(one(50)) + "," + std::to_string(one(3)) + ");";
      }
    }
    Execute(rows);
  }

  /// Lines of goods in any order, some of them more than once.
  void AddLines(int lines, std::mt19937& random) {
    form.flexDetail.SetRows(1);
    for (int i = 0; i < lines; ++i) {
      const int row = form.AddLine(Barcode(std::uniform_int_distribution<int>(0, 99)(random)));
      form.Set(row, LineColumn::AcceptedCounting, std::to_string(i % 7));
      form.Set(row, LineColumn::Rate, "9");
      form.Set(row, LineColumn::UnitName, "before");
    }
  }

  [[nodiscard]] std::vector<Texts> Lines() const {
    std::vector<Texts> lines;
    for (int row = 1; row < form.flexDetail.Rows(); ++row) lines.push_back(form.Row(row));
    return lines;
  }
  [[nodiscard]] Texts Totals() const {
    return {form.txtTotalBelowValue.Text(), form.txtTotalAboveValue.Text(), form.txtTotalValue.Text()};
  }

  /// Runs cmdGoods for all goods; nothing when it was cancelled.
  std::optional<int> AddAll() {
    messages.WillAnswer(Answers::Yes);
    return AddGoods(form, shared, form.lines).Run([this]() -> const SqlText& { return all; });
  }

  /// The round trips of the commands since the last call.
  std::size_t NewTrips() { return std::exchange(server.trips.statements, {}).size(); }

  const SqlText all = SqlText("tblGood.Barcode<>'' Order By Barcode");
};

/// The figures do not matter to the count of trips: every line asks its unit and its rate twice.
class TripsOfManyLines : public LinesInTrips, public ::testing::WithParamInterface<int> {};

TEST_P(TripsOfManyLines, A_calculation_takes_one_for_fifty_lines) {
  {
    const GridRedrawOff redrawOff(form.flexDetail);
    for (int i = 0; i < GetParam(); ++i) form.AddLine(std::to_string(i));
  }
  server.trips.statementsPerTrip = 400;
  server.trips.statements.clear();
  form.quantity.CalculateAllLines();
  std::size_t statements = 0;
  for (const std::size_t ofTrip : server.trips.statements) statements += ofTrip;
  EXPECT_EQ(statements, 6U * static_cast<std::size_t>(GetParam()));
  EXPECT_LE(NewTrips(), static_cast<std::size_t>((GetParam() + 49) / 50));
  EXPECT_EQ(form.Cell(GetParam(), LineColumn::UnitName), "عدد");
}

TEST_P(TripsOfManyLines, Adding_goods_takes_one_for_fifty_goods_and_one_for_the_search) {
  database.InsertRows("tblGood (Barcode,Code,Name)", 1, GetParam(),
                      [](int i) { return "'" + std::to_string(i) + "','c','name'"; });
  server.trips.statementsPerTrip = 400;
  server.trips.statements.clear();
  EXPECT_EQ(AddAll(), GetParam());
  EXPECT_LE(NewTrips(), 1 + static_cast<std::size_t>((GetParam() + 49) / 50));
  EXPECT_EQ(form.Cell(GetParam(), LineColumn::UnitName), "عدد");
}

INSTANTIATE_TEST_SUITE_P(Of, TripsOfManyLines, ::testing::Values(100, 5000, 32767));

TEST_F(LinesInTrips, Random_countings_are_calculated_as_one_by_one) {
  for (unsigned seed = 1; seed <= 12; ++seed) {
    std::mt19937 random(seed);
    Execute(
        "delete from tblGood; delete from tblGoodSaleScale; delete from tblInventoryReceiptDetail;"
        "delete from tblInventoryDispatchDetail");
    FillBooks(random);
    const std::mt19937 forLines = random;
    const auto calculate = [&](std::size_t perTrip) {
      std::mt19937 same = forLines;
      AddLines(static_cast<int>(seed) * 5, same);
      server.trips.statementsPerTrip = perTrip;
      NewStatements();
      form.quantity.CalculateAllLines();
      Texts statements = NewStatements();
      std::sort(statements.begin(), statements.end());
      return std::make_tuple(Lines(), Totals(), statements);
    };
    const auto oneByOne = calculate(1);
    for (const std::size_t perTrip : {2U, 3U, 4U, 7U, 8U, 21U, 400U}) {
      EXPECT_EQ(calculate(perTrip), oneByOne) << "seed " << seed << ", statements of a trip " << perTrip;
    }
  }
}

TEST_F(LinesInTrips, Goods_are_added_as_one_by_one) {
  std::mt19937 random(5);
  FillBooks(random);
  const auto add = [&](std::size_t perTrip) {
    form.flexDetail.SetRows(1);
    form.AddLine("07");
    form.AddLine("50");
    server.trips.statementsPerTrip = perTrip;
    EXPECT_EQ(AddAll(), 98);
    return std::make_pair(Lines(), Totals());
  };
  const auto oneByOne = add(1);
  for (const std::size_t perTrip : {2U, 3U, 4U, 8U, 60U, 400U}) EXPECT_EQ(add(perTrip), oneByOne) << perTrip;
}

/// One of the statements of a command fails, and the same one for each number of statements in a trip.
class FailuresInTrips : public LinesInTrips {
 protected:
  void SetUp() override {
    LinesInTrips::SetUp();
    std::mt19937 random(3);
    FillBooks(random);
  }

  /// The place in `statements`, from 1, of the occurrence of `ofOneByOne[i]` that has as many before it.
  static int PlaceIn(const Texts& statements, const Texts& ofOneByOne, std::size_t i) {
    auto before =
        std::count(ofOneByOne.begin(), ofOneByOne.begin() + static_cast<std::ptrdiff_t>(i), ofOneByOne[i]);
    auto at = std::find(statements.begin(), statements.end(), ofOneByOne[i]);
    while (before-- > 0) at = std::find(at + 1, statements.end(), ofOneByOne[i]);
    return static_cast<int>(at - statements.begin()) + 1;
  }

  /// What a command leaves when the statement at `place` fails: the statement, the lines and the bar.
  template <class Command>
  auto After(int place, const Command& command) {
    failing.Plan().FailAt(place);
    std::string failed;
    try {
      command();
    } catch (const DatabaseError& failure) {
      failed = failure.Statement();
    }
    failing.Plan().FailAt(0);
    return std::make_tuple(failed, Lines(), Totals(), form.pgbStatus.Visible(), form.cmdStop.Visible());
  }

  template <class Command>
  void ExpectSameFailures(const Command& command) {
    const auto statementsOf = [&](std::size_t perTrip) {
      server.trips.statementsPerTrip = perTrip;
      NewStatements();
      command();
      return NewStatements();
    };
    const Texts oneByOne = statementsOf(1);
    ASSERT_GT(oneByOne.size(), 30U);
    for (const std::size_t perTrip : {2U, 4U, 12U, 400U}) {
      const Texts inTrips = statementsOf(perTrip);
      ASSERT_EQ(inTrips.size(), oneByOne.size());
      for (std::size_t i = 0; i < oneByOne.size(); ++i) {
        server.trips.statementsPerTrip = 1;
        const auto expected = After(static_cast<int>(i) + 1, command);
        EXPECT_EQ(std::get<0>(expected), oneByOne[i]);
        server.trips.statementsPerTrip = perTrip;
        EXPECT_EQ(After(PlaceIn(inTrips, oneByOne, i), command), expected)
            << "statements of a trip " << perTrip << ", failing " << oneByOne[i];
      }
    }
  }
};

TEST_F(FailuresInTrips, Leave_what_a_calculation_has_done_one_by_one) {
  ExpectSameFailures([this] {
    std::mt19937 random(8);
    AddLines(9, random);
    form.quantity.CalculateAllLines();
  });
}

TEST_F(FailuresInTrips, Leave_the_goods_that_were_complete_one_by_one) {
  Execute("delete from tblGood where Barcode>'08'");
  ExpectSameFailures([this] {
    form.flexDetail.SetRows(1);
    form.AddLine("03");
    AddAll();
  });
}

TEST_F(FailuresInTrips, A_barcode_that_no_statement_can_carry_fails_in_its_turn) {
  const auto calculate = [this](std::size_t perTrip) {
    std::mt19937 random(8);
    AddLines(6, random);
    form.Set(4, LineColumn::Barcode, "x' or 1=1 --");
    server.trips.statementsPerTrip = perTrip;
    std::string failed;
    try {
      form.quantity.CalculateAllLines();
    } catch (const DatabaseError& failure) {
      failed = failure.what();
    }
    return std::make_pair(failed, Lines());
  };
  const auto oneByOne = calculate(1);
  EXPECT_NE(oneByOne.first, "");
  EXPECT_NE(oneByOne.second[2][LineColumn::UnitName], "before");
  EXPECT_EQ(oneByOne.second[3][LineColumn::UnitName], "before");
  for (const std::size_t perTrip : {2U, 8U, 400U}) EXPECT_EQ(calculate(perTrip), oneByOne) << perTrip;
}

/// The user cancels when the bar has come to a step.
class CancelledInTrips : public LinesInTrips, public ::testing::WithParamInterface<std::size_t> {
 protected:
  void SetUp() override {
    LinesInTrips::SetUp();
    std::mt19937 random(3);
    FillBooks(random);
    server.trips.statementsPerTrip = GetParam();
  }

  /// The steps of the bar during `command`.
  template <class Command>
  std::vector<int> StepsOf(const Command& command) {
    std::vector<int> steps;
    const Subscription watching = form.pgbStatus.StateChanged.Subscribe([&] {
      if (form.cmdStop.Visible()) steps.push_back(form.pgbStatus.Value());
    });
    command();
    return steps;
  }

  template <class Command>
  void CancelAt(int step, const Command& command) {
    const Subscription pressing = form.pgbStatus.StateChanged.Subscribe([&] {
      if (!form.cmdStop.Visible() || form.pgbStatus.Value() != step) return;
      EXPECT_TRUE(form.cmdStop.UserClick());
    });
    command();
  }

  void ExpectAtRest() {
    EXPECT_FALSE(form.pgbStatus.Visible());
    EXPECT_FALSE(form.cmdStop.Visible());
    EXPECT_FALSE(form.cmdStop.UserClick());
    EXPECT_EQ(screen.CurrentCursor(), Cursor::Normal);
  }
};

TEST_P(CancelledInTrips, A_calculation_changes_no_line) {
  std::mt19937 random(8);
  AddLines(25, random);
  const auto before = std::make_pair(Lines(), Totals());
  const auto calculate = [this] { form.quantity.CalculateAllLines(); };
  const std::vector<int> steps = StepsOf(calculate);
  const std::size_t linesOfGroup = std::max<std::size_t>(GetParam() / 4, 1);
  ASSERT_EQ(steps.size(), (25 + linesOfGroup - 1) / linesOfGroup);
  for (const int step : steps) {
    random.seed(8);
    AddLines(25, random);
    form.txtTotalBelowValue.SetText(before.second[0]);
    form.txtTotalAboveValue.SetText(before.second[1]);
    form.txtTotalValue.SetText(before.second[2]);
    NewStatements();
    CancelAt(step, calculate);
    EXPECT_EQ(std::make_pair(Lines(), Totals()), before) << step;
    EXPECT_GE(NewStatements().size(), 4U * static_cast<std::size_t>(step - 1)) << "all before were asked";
    ExpectAtRest();
  }
  form.quantity.CalculateAllLines();
  EXPECT_NE(Lines(), before.first);
}

TEST_P(CancelledInTrips, No_good_is_added) {
  form.AddLine("50");
  const auto before = Lines();
  const auto add = [this] { AddAll(); };
  const std::vector<int> steps = StepsOf(add);
  EXPECT_EQ(form.flexDetail.Rows(), 101);
  ASSERT_GE(steps.size(), 1U);
  for (const int step : steps) {
    form.flexDetail.SetRows(2);
    form.flexDetail.SetTextMatrix(1, LineColumn::Barcode, "50");
    CancelAt(step, [this] { EXPECT_EQ(AddAll(), std::nullopt); });
    EXPECT_EQ(Lines(), before) << step;
    ExpectAtRest();
  }
  EXPECT_EQ(AddAll(), 99);
}

INSTANTIATE_TEST_SUITE_P(WithStatementsOfATrip, CancelledInTrips, ::testing::Values(1U, 4U, 20U, 400U));

}  // namespace
}  // namespace koru
