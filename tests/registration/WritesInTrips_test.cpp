#include <string>
#include <utility>
#include <vector>

#include "registration/FinalRegistration.h"
#include "registration/TemporarySave.h"
#include "tests/registration/DocumentsTest.h"

// A save and a registration over a database that takes several statements in a round trip.

namespace koru {
namespace {

class WritesInTrips : public DocumentsTest {
 protected:
  WritesInTrips() { server.trips.statementsPerTrip = 400; }

  /// The lines of a counting: shortages and surpluses in turn.
  void FillLines(int lines) {
    form.flexDetail.SetRows(1);
    const GridRedrawOff redrawOff(form.flexDetail);
    for (int i = 0; i < lines; ++i) {
      GridLine line{.barcode = std::to_string(i), .accepted = "7"};
      (i % 2 == 0 ? line.shortage : line.surplus) = "3";
      AddLine(line);
    }
  }
  void PrepareNew(int lines) {
    FillHeader();
    form.lblIDVal.SetCaption("");
    FillLines(lines);
    shared.DocMode = DocumentMode::New;
    server.trips.statements.clear();
    StartRecording();
  }
  std::size_t TripsOfSave(int lines) {
    PrepareNew(lines);
    TemporarySave(form, shared, guard).Run();
    EXPECT_EQ(shared.DocMode, DocumentMode::Viewing);
    return server.trips.statements.size();
  }
  std::size_t TripsOfRegistration(int lines) {
    PrepareNew(lines);
    FinalRegistration(form, shared, guard).Run();
    EXPECT_NE(form.txtCode.Text(), "");
    return server.trips.statements.size();
  }
  std::string Count(const std::string& table) { return database.Scalar("select count(*) from " + table); }
};

class WritesOfManyLines : public WritesInTrips, public ::testing::WithParamInterface<int> {};

TEST_P(WritesOfManyLines, A_save_takes_one_trip_for_a_hundred_lines_beside_those_of_an_empty_counting) {
  const int lines = GetParam();
  const std::size_t fixed = TripsOfSave(0);
  EXPECT_LE(TripsOfSave(lines), fixed + static_cast<std::size_t>((lines + 99) / 100));
  EXPECT_EQ(Count("tblInventoryCountingDetail"), std::to_string(lines));
}

TEST_P(WritesOfManyLines, A_registration_takes_one_for_a_hundred_lines_beside_those_of_two_lines) {
  const int lines = GetParam();
  const std::size_t fixed = TripsOfRegistration(2);
  EXPECT_LE(TripsOfRegistration(lines), fixed + static_cast<std::size_t>((lines + 99) / 100));
  EXPECT_EQ(Count("tblInventoryDispatchDetail"), std::to_string((lines + 1) / 2 + 1));
  EXPECT_EQ(Count("tblInventoryReceiptDetail"), std::to_string(lines / 2 + 1));
}

INSTANTIATE_TEST_SUITE_P(Of, WritesOfManyLines, ::testing::Values(100, 5000, 32767));

TEST_F(WritesInTrips, Statements_and_rows_are_those_of_one_by_one) {
  const auto registered = [](std::size_t perTrip) {
    CountingDesk desk;
    desk.server.trips.statementsPerTrip = perTrip;
    desk.FillHeader();
    for (int i = 0; i < 57; ++i) {
      GridLine line{.barcode = std::to_string(i % 20), .name = i % 9 == 4 ? "" : "name", .accepted = "7"};
      if (i % 3 != 2) (i % 3 == 0 ? line.shortage : line.surplus) = "3";
      desk.AddLine(line);
    }
    desk.shared.DocMode = DocumentMode::New;
    desk.StartRecording();
    FinalRegistration(desk.form, desk.shared, desk.guard).Run();
    return std::make_pair(desk.recording.Statements(), desk.Dump());
  };
  const auto oneByOne = registered(1);
  EXPECT_GT(oneByOne.first.size(), 80U);
  for (const std::size_t perTrip : {2U, 4U, 50U, 400U}) EXPECT_EQ(registered(perTrip), oneByOne) << perTrip;
}

TEST_F(WritesInTrips, The_look_for_changes_by_other_stations_takes_one_trip) {
  TripsOfSave(50);
  server.trips.statements.clear();
  guard.Stored().Remember(static_cast<std::int32_t>(form.CountingID()));
  EXPECT_EQ(server.trips.statements, std::vector<std::size_t>{2});
}

}  // namespace
}  // namespace koru
