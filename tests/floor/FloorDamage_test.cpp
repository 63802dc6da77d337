// A journal that cannot be read whole: what can be read is used, the desk is to hear of the rest, and the
// file is kept.

#include "tests/floor/FloorWorld.h"

namespace koru::test {
namespace {

class FloorDamage : public FloorWorld {
 protected:
  /// Ends the program with a figure of tea and one of sugar.
  void CountAndCrash() {
    Set(1, kTeaLine, "12");
    Set(1, kSugarLine, "13");
    Crash();
  }
  /// Damages the line of the journal with that text.
  void Damage(const std::string& text) {
    const std::size_t at = journal_.synced.find(text);
    ASSERT_NE(at, std::string::npos);
    journal_.synced[at] ^= 1;
  }
};

TEST_F(FloorDamage, At_the_beginning_leaves_nothing_to_be_read_and_the_desk_hears_it_once) {
  CountAndCrash();
  Damage("floor1");
  const std::string text = journal_.synced;
  StartAndOpen();
  const auto damage = session_->TakeDamage();
  ASSERT_TRUE(damage);
  EXPECT_EQ(damage->kind, JournalDamage::Kind::Unreadable);
  EXPECT_EQ(damage->file, "aside 1");
  EXPECT_FALSE(session_->TakeDamage());
  EXPECT_EQ(journal_.aside, Texts{text});
  EXPECT_TRUE(session_->IsOpen());
  EXPECT_TRUE(session_->Left().Cells().empty());
}

TEST_F(FloorDamage, Of_a_journal_of_another_counting_is_that) {
  CountAndCrash();
  JournalContents other = ReadJournal(journal_.synced);
  other.start.countingID = 21;
  journal_.synced = JournalText(other.start);
  StartAndOpen();
  const auto damage = session_->TakeDamage();
  ASSERT_TRUE(damage);
  EXPECT_EQ(damage->kind, JournalDamage::Kind::OtherCounting);
  EXPECT_EQ(journal_.aside.size(), 1U);
}

TEST_F(FloorDamage, Of_some_lines_leaves_the_others_and_the_desk_hears_their_number) {
  const std::string code = session_->Code(1);
  CountAndCrash();
  Damage("\t13\t");
  const std::string text = journal_.synced;
  StartAndOpen();
  const auto damage = session_->TakeDamage();
  ASSERT_TRUE(damage);
  EXPECT_EQ(damage->kind, JournalDamage::Kind::Lines);
  EXPECT_EQ(damage->lines, 1U);
  EXPECT_EQ(damage->file, "aside 1");
  EXPECT_EQ(journal_.aside, Texts{text});
  EXPECT_EQ(session_->Code(1), code);
  EXPECT_EQ(session_->Replay().entered, 1U);
  EXPECT_EQ(Count(kTeaLine, 1), "12");
  EXPECT_EQ(Count(kSugarLine, 1), "");
  Crash();
  StartAndOpen();
  EXPECT_FALSE(session_->TakeDamage()) << "the journal has what could be read, and is whole";
  EXPECT_EQ(session_->Replay().entered, 1U);
  EXPECT_EQ(Count(kTeaLine, 1), "12");
}

TEST_F(FloorDamage, Of_a_journal_that_cannot_be_set_aside_leaves_it_where_it_is) {
  CountAndCrash();
  Damage("\t13\t");
  Start();
  journal_.isFull = true;
  Open();
  journal_.isFull = false;
  const auto damage = session_->TakeDamage();
  ASSERT_TRUE(damage);
  EXPECT_EQ(damage->lines, 1U);
  EXPECT_EQ(damage->file, "");
  EXPECT_EQ(session_->Replay().entered, 1U);
  EXPECT_EQ(Count(kTeaLine, 1), "12");
  EXPECT_EQ(Set(1, kSugarLine, "14").state, FigureState::Stored);
}

TEST_F(FloorDamage, Of_some_lines_on_a_full_disk_does_not_keep_the_others_from_being_offered) {
  CountAndCrash();
  Damage("\t13\t");
  Start();
  journal_.hasRoom = false;
  Open();
  EXPECT_EQ(session_->Left().Cells().size(), 1U);
  journal_.hasRoom = true;
  Crash();
  StartAndOpen();
  EXPECT_EQ(session_->TakeDamage()->file, "aside 1");
  EXPECT_EQ(session_->Replay().entered, 1U);
}

TEST_F(FloorDamage, At_the_beginning_is_reported_when_the_disk_was_full_at_first) {
  CountAndCrash();
  Damage("floor1");
  Start();
  journal_.hasRoom = false;
  EXPECT_THROW(Open(), InputError);
  journal_.hasRoom = true;
  Open();
  EXPECT_TRUE(session_->TakeDamage());
}

TEST_F(FloorDamage, Is_not_what_a_program_leaves_that_ends_in_the_middle_of_a_line) {
  CountAndCrash();
  journal_.synced.resize(journal_.synced.size() - 3);
  StartAndOpen();
  EXPECT_FALSE(session_->TakeDamage());
  EXPECT_EQ(journal_.aside, Texts{});
  SaveAndEdit();
  Crash();
  StartAndOpen();
  EXPECT_FALSE(session_->TakeDamage());
}

}  // namespace
}  // namespace koru::test
