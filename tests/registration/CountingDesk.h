#pragma once

#include <string>

#include "registration/ReturnToTemporary.h"
#include "registration/StoredCountingGuard.h"
#include "services/SharedState.h"
#include "tests/support/BareCountingForm.h"
#include "tests/support/DatabaseFixture.h"

namespace koru {

using test::Texts;

/// One line as the grid shows it; a field that is not named stays empty.
struct GridLine {
  std::string barcode;
  std::string name = "كالا";
  std::string unit = "4";
  std::string first = {};
  std::string second = {};
  std::string third = {};
  std::string accepted = {};
  std::string system = {};
  std::string shortage = {};
  std::string surplus = {};
  std::string rate = {};
};

/// User 7, who holds all rights, an empty form, and a fresh database.
class CountingDesk : public test::DatabaseFixture {
 public:
  CountingDesk();

  /// Store 3, counters 11, none and 13, confirmer 14, the dates, notes and a manual number.
  void FillHeader();
  void AddLine(const GridLine& line);
  /// Stores a temporary counting of key 1 without lines and shows its key.
  void StoreCounting();
  /// Stores a line of counting 1; `contradiction` and `scaleID` are numbers or NULL.
  void StoreLine(int row, const std::string& barcode, const std::string& contradiction,
                 const std::string& scaleID = "4");
  void Grant(int permission);
  void Revoke(int permission);

  /// Runs statements that are not recorded.
  void Execute(const std::string& sql) { database.Execute(sql); }
  /// Rows as "field|field", NULL as "NULL".
  [[nodiscard]] Texts Rows(const std::string& sql);
  [[nodiscard]] std::string Dump() { return database.Dump(); }

  /// The statements since StartRecording, without the questions for rights and
  /// those that look for changes by other stations.
  [[nodiscard]] Texts Sent() const;
  void StartRecording() { recording.ForgetStatements(); }

  /// Whether the form only shows the counting.
  [[nodiscard]] bool IsLocked() const { return !form.gdpReceiveDate.Enabled(); }

  SharedState shared{Services()};
  test::BareCountingForm form{screen};
  StoredCountingGuard guard{shared};
  ReturnToTemporary returning{form, shared, guard};
};

/// `piece` repeated `times` times.
[[nodiscard]] std::string Repeat(const std::string& piece, int times);

}  // namespace koru
