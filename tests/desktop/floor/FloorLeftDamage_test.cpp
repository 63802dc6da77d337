// Left figures of the floor in a journal that cannot be read whole.

#include <fstream>

#include "adapters/system/ReadWhole.h"
#include "desktop/floor/FloorTable.h"
#include "platform/text/FilePath.h"
#include "tests/desktop/floor/FloorLeftTest.h"

namespace koru {
namespace {

class FloorLeftDamaged : public FloorLeftTest {
 protected:
  /// Damages the line of the journal with that text.
  void DamageJournal(const std::string& line) {
    const std::filesystem::path file = FileEndingIn(".journal");
    std::error_code error;
    std::string text = ReadWhole(file, error);
    const std::size_t at = text.find(line);
    ASSERT_NE(at, std::string::npos);
    text[at] ^= 1;
    std::ofstream(file, std::ios::binary) << text;
  }
};

TEST_F(FloorLeftDamaged, In_a_journal_with_damaged_lines_are_offered_after_the_desk_has_read_of_the_damage) {
  DamageJournal("\t8\t");
  bool isShown = false;
  EXPECT_TRUE(EditAndAnswer([&](QDialog& dialog) {
    isShown = !NewMessages().empty();
    EXPECT_EQ(dialog.findChild<FloorTable*>(QStringLiteral("leftTable"))->rowCount(), 1);
    Click(dialog, "takeLeft");
  }));
  EXPECT_TRUE(isShown) << "before";
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "9");
  EXPECT_EQ(Cell(2, LineColumn::ThirdCounting), "");
  Find<QAction>("floorCommand").trigger();
  EXPECT_TRUE(desk->IsServed());
  EXPECT_EQ(NewMessages(), test::Texts{}) << "once";
}

TEST_F(FloorLeftDamaged, In_a_journal_with_damaged_lines_are_named_by_their_number_and_where_they_are_kept) {
  DamageJournal("\t8\t");
  ASSERT_TRUE(EditAndAnswer([&](QDialog& dialog) {
    const auto messages = NewMessages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_NE(messages[0].find(": 1 سطر آن، كه هر كدام مي\u200cتواند يك رقم باشد، خوانده نشد"),
              std::string::npos)
        << messages[0];
    EXPECT_NE(messages[0].find("30 روز نگه داشته مي\u200cشود"), std::string::npos) << messages[0];
    EXPECT_NE(messages[0].find(TextOf(FileEndingIn(".aside"))), std::string::npos) << messages[0];
    Click(dialog, "decideLater");
  }));
}

TEST_F(FloorLeftDamaged, In_a_journal_without_its_beginning_are_reported_once_and_the_floor_can_be_opened) {
  DamageJournal("floor1");
  Edit();
  desk->Refresh();
  const auto messages = NewMessages();
  ASSERT_EQ(messages.size(), 1U);
  EXPECT_EQ(messages[0].find("دفتر ارقام گوشي\u200cهاي اين شمارش آسيب ديده است و خوانده نشد"), 0U)
      << messages[0];
  EXPECT_NE(messages[0].find(TextOf(FileEndingIn(".aside"))), std::string::npos) << messages[0];
  Find<QAction>("floorCommand").trigger();
  EXPECT_TRUE(desk->IsServed());
  EXPECT_EQ(NewMessages(), test::Texts{});
}

TEST_F(FloorLeftDamaged, In_a_damaged_journal_are_reported_by_the_command_too) {
  DamageJournal("floor1");
  Tick();
  world.messages.WillAnswer(Answer::Yes);
  Find<QAction>("floorCommand").trigger();
  EXPECT_TRUE(desk->IsServed());
  const auto messages = NewMessages();
  ASSERT_EQ(messages.size(), 2U) << "the question whether to edit, and the damage";
}

TEST_F(FloorLeftDamaged, In_a_journal_that_cannot_be_read_are_reported_once_by_Edit) {
  ReplaceJournalByFolder();
  Edit();
  desk->Refresh();
  desk->Refresh();
  EXPECT_EQ(desk->Session(), nullptr);
  const auto messages = NewMessages();
  ASSERT_EQ(messages.size(), 1U);
  EXPECT_EQ(messages[0].find("دفتر ارقام گوشي\u200cها خوانده نشد: "), 0U) << messages[0];
}

}  // namespace
}  // namespace koru
