#include "tests/registration/CountingDesk.h"

#include <array>
#include <sstream>
#include <utility>

#include "lines/LineColumns.h"

namespace koru {

CountingDesk::CountingDesk() {
  form.flexDetail.SetCols(kLineColumns);
  shared.data.SetConnectionString(database.ConnectionText());
  shared.user.userID = 7;
  for (const int permission : {80605, 80606, 80607}) Grant(permission);
}

void CountingDesk::FillHeader() {
  using std::chrono::year;
  form.gmpInventory.Select(3);
  form.gdpReceiveDate.SetValue(year{2024} / 3 / 20);
  form.gdpFromDate.SetValue(year{2023} / 3 / 21);
  form.gdpToDate.SetValue(year{2024} / 3 / 19);
  form.mptCounter1.Select(11);
  form.mptCounter3.Select(13);
  form.mptConfirmer.Select(14);
  form.txtNotes.SetText("شمارش 'پايان' سال");
  form.txtGNO.SetText("  م-12 ");
}

void CountingDesk::AddLine(const GridLine& line) {
  Grid& grid = form.flexDetail;
  grid.AddItem({});
  const int row = grid.Rows() - 1;
  const std::array<std::pair<int, const std::string*>, 11> cells = {
      {{LineColumn::Barcode, &line.barcode},
       {LineColumn::GoodName, &line.name},
       {LineColumn::ScaleID, &line.unit},
       {LineColumn::FirstCounting, &line.first},
       {LineColumn::SecondCounting, &line.second},
       {LineColumn::ThirdCounting, &line.third},
       {LineColumn::AcceptedCounting, &line.accepted},
       {LineColumn::SystemCounting, &line.system},
       {LineColumn::Shortage, &line.shortage},
       {LineColumn::Surplus, &line.surplus},
       {LineColumn::Rate, &line.rate}}};
  for (const auto& [column, text] : cells) grid.SetTextMatrix(row, column, *text);
}

void CountingDesk::StoreCounting() {
  Execute("insert into tblInventoryCounting (InventoryID, CreatorID) values (3, 7)");
  form.lblIDVal.SetCaption("1");
  shared.DocMode = DocumentMode::Viewing;
}

void CountingDesk::StoreLine(int row, const std::string& barcode, const std::string& contradiction,
                             const std::string& scaleID) {
  Execute(
      "insert into tblInventoryCountingDetail (CountingID, RowNumber, Barcode, ContradictionCounting, "
      "ScaleID) "
      "values (1, " +
      std::to_string(row) + ", '" + barcode + "', " + contradiction + ", " + scaleID + ")");
}

void CountingDesk::Grant(int permission) {
  Execute("insert into tblPelinUserPermission values (" + std::to_string(shared.user.userID) + ", " +
          std::to_string(permission) + ")");
}

void CountingDesk::Revoke(int permission) {
  Execute("delete from tblPelinUserPermission where FormPermissionID = " + std::to_string(permission));
}

Texts CountingDesk::Rows(const std::string& sql) {
  Texts rows;
  std::istringstream lines(database.Rows(sql));
  for (std::string line; std::getline(lines, line);) rows.push_back(line);
  return rows;
}

Texts CountingDesk::Sent() const {
  Texts sent;
  for (const std::string& statement : recording.Statements()) {
    if (statement.find("spPelinHasPermission") == std::string::npos && !test::LooksForChanges(statement)) {
      sent.push_back(statement);
    }
  }
  return sent;
}

std::string Repeat(const std::string& piece, int times) {
  std::string text;
  for (int i = 0; i < times; ++i) text += piece;
  return text;
}

}  // namespace koru
