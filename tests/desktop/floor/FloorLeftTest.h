#pragma once

#include <filesystem>

#include "tests/desktop/floor/FloorDeskTest.h"

namespace koru {

/// A program has ended with two figures that it has not saved: 9 for rice in the second count, from "تبلت
/// انبار", and 8 for oil in the third.
class FloorLeftTest : public FloorDeskTest {
 protected:
  void SetUp() override {
    OpenInEdit();
    desk->Session()->Hello(2, "d2", "تبلت انبار");
    Set(2, kRice, "9");
    Set(3, kOil, "8");
    StartAnew();
  }
  /// Presses Edit and answers the offer of the figures; false when there is none.
  [[nodiscard]] bool EditAndAnswer(const std::function<void(QDialog&)>& answer) {
    return WithDialog(
        "koru::LeftFiguresDialog", [this] { EditAndRefresh(); }, answer);
  }
  [[nodiscard]] std::filesystem::path FileEndingIn(const char* ending) const {
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path() / "floor")) {
      if (entry.path().extension() == ending) return entry.path();
    }
    return {};
  }
  /// Makes the desk unable to read the journal.
  void ReplaceJournalByFolder() {
    const std::filesystem::path journal = FileEndingIn(".journal");
    ASSERT_TRUE(std::filesystem::remove(journal));
    std::filesystem::create_directory(journal);
  }
};

}  // namespace koru
