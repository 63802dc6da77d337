#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <thread>
#include <utility>

#include "adapters/system/LocalTime.h"
#include "draft/CountingDraft.h"
#include "lines/LineColumns.h"
#include "platform/sql/ConnectionText.h"
#include "platform/text/Errors.h"
#include "platform/text/Fingerprint.h"
#include "tests/counting/DraftsTest.h"

namespace koru::test {
namespace {

using Answer = FakeMessages::Answer;

/// What a user could do next, by chance.
void DoAnything(frmInvCounting& form, FakeMessages& messages, std::mt19937& random) {
  const auto any = [&](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
  Grid& grid = form.flexDetail;
  const std::string text = "متن \\ با\tجدا'كننده " + std::to_string(any(1000));
  const auto row = [&] { return 1 + any(std::max(1, grid.Rows() - 1)); };
  switch (any(9)) {
    case 0:
      form.txtNotes.UserType(text + "\nسطر دوم");
      break;
    case 1:
      form.txtGNO.UserType(text);
      break;
    case 2:
      form.gdpToDate.UserSet(any(3) == 0 ? std::optional<Date>()
                                         : std::chrono::year{2025} / 1 / (1 + any(28)));
      break;
    case 3:
      form.mptCounter2.UserSelect(any(3) == 0 ? Selector::kNothing : any(9));
      break;
    case 4:
      grid.UserClickHeader(any(kLineColumns));
      break;
    case 5:
      if (grid.Rows() < 2) break;
      messages.WillAnswer(any(2) == 0 ? Answer::Yes : Answer::No);
      if (grid.UserMoveTo(row(), LineColumn::Barcode)) grid.UserDeleteRow();
      break;
    default: {
      constexpr int kTyped[] = {LineColumn::FirstCounting, LineColumn::SecondCounting,
                                LineColumn::ThirdCounting, LineColumn::AcceptedCounting, LineColumn::Rate};
      grid.UserEdit(row(), kTyped[any(5)], any(5) == 0 ? "" : std::to_string(any(100'000)) + ".25");
    }
  }
}

std::string ContentOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

TEST_F(Drafts, Bring_back_the_form_exactly_as_it_was) {
  for (unsigned seed = 1; seed <= 60 && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    if (seed % 2 == 0) {
      EnterNew();
    } else {
      Edit(10);
    }
    Counting().txtNotes.UserType("آغاز");
    for (auto step = random() % 20; step > 0; --step) DoAnything(Counting(), messages, random);
    Pause();
    const std::string before = Shown();
    Crash();
    ASSERT_TRUE(program_->FindDraft());
    ASSERT_TRUE(program_->RestoreDraft());
    EXPECT_EQ(Shown(), before);
    EXPECT_EQ(NewMessages(), Texts{});
    messages.WillAnswer(Answer::Yes);
    Click(Counting().cmdCancel);
    EXPECT_EQ(Files(), 0U);
    Crash();
  }
}

TEST_F(Drafts, Bring_back_the_order_of_entry_of_sorted_lines) {
  EnterNew();
  Grid* grid = &Counting().flexDetail;
  grid->UserMoveTo(1, LineColumn::Barcode);
  messages.WillAnswer(Answer::Yes);
  ASSERT_TRUE(grid->UserDeleteRow());
  for (const char* barcode : {"G9", "G1"}) {
    grid->AddItem("");
    grid->SetTextMatrix(grid->Rows() - 1, LineColumn::Barcode, barcode);
  }
  const auto barcodes = [&grid] {
    std::string all;
    for (int row = 1; row < grid->Rows(); ++row)
      all += std::string(grid->TextMatrix(row, LineColumn::Barcode));
    return all;
  };
  grid->UserSort({LineColumn::Barcode, RowOrder::Descending});
  for (int crash = 0; crash < 2; ++crash) {
    Counting().txtNotes.UserType("يادداشت " + std::to_string(crash));
    Pause();
    Crash();
    ASSERT_TRUE(program_->FindDraft());
    ASSERT_TRUE(program_->RestoreDraft());
    grid = &Counting().flexDetail;
    EXPECT_EQ(barcodes(), "G9G3G2G1");
  }
  EXPECT_EQ(DecodeDraft(ContentOf(OnlyFile())).places, (std::vector<std::size_t>{3, 2, 1, 4}));
  grid->UserSort({LineColumn::Barcode, RowOrder::Entry});
  EXPECT_EQ(barcodes(), "G2G3G9G1");
  grid->AddItem("");
  grid->UserSort({LineColumn::Barcode, RowOrder::Descending});
  grid->UserSort({LineColumn::Barcode, RowOrder::Entry});
  EXPECT_EQ(barcodes(), "G2G3G9G1") << "a line that is added is the last one";
}

TEST_F(Drafts, Whose_order_of_entry_is_not_that_of_their_lines_are_damaged) {
  EnterNew();
  Counting().flexDetail.UserSort({LineColumn::Barcode, RowOrder::Descending});
  Pause();
  const std::string draft = ContentOf(OnlyFile());
  const std::string places = "\nplaces\t3\t2\t1";
  ASSERT_NE(draft.find(places), std::string::npos);
  for (const char* const wrong : {"3\t2\t2", "3\t2", "4\t2\t1", "0\t2\t1", "3\t2\t1\t4"}) {
    std::string text = draft.substr(0, draft.rfind("\nend\t"));
    text.replace(text.find(places), places.size(), std::string("\nplaces\t") + wrong);
    text += "\nend\t" + std::to_string(Fingerprint(text)) + "\n";
    EXPECT_THROW(static_cast<void>(DecodeDraft(text)), InputError) << wrong;
  }
  EXPECT_EQ(DecodeDraft(draft).places, (std::vector<std::size_t>{3, 2, 1}));
}

TEST_F(Drafts, Say_what_they_are_and_when_they_were_written) {
  Edit(10);
  Type("7");
  Pause();
  Crash();
  // The time on the machine's clock is 10:07, in every time zone.
  const auto wanted = std::chrono::local_days(std::chrono::year{2025} / 12 / 1) + std::chrono::hours(10) +
                      std::chrono::minutes(7);
  const std::chrono::sys_seconds assumed(wanted.time_since_epoch());
  const auto offset = LocalTime(assumed).time_since_epoch() - assumed.time_since_epoch();
  std::filesystem::last_write_time(OnlyFile(), std::chrono::file_clock::from_sys(assumed - offset));
  EXPECT_EQ(program_->FindDraft(),
            "اصلاح شمارش 10 با 2 رديف ذخيره نشده است. آخرين پيش\u200cنويس: 1404/09/10 ساعت 10:07");
}

TEST_F(Drafts, Are_written_after_a_pause_and_every_few_seconds_without_one) {
  Edit(10);
  Type("7");
  Tick(DraftKeeper::kPauseTicks - 1);
  EXPECT_EQ(Files(), 0U);
  Tick();
  EXPECT_EQ(Files(), 1U);
  const auto written = std::filesystem::last_write_time(OnlyFile());
  Pause();
  EXPECT_EQ(std::filesystem::last_write_time(OnlyFile()), written) << "nothing has changed";
  std::filesystem::remove(OnlyFile());
  for (int tick = 1; tick < DraftKeeper::kMaxTicksUnwritten; ++tick) {
    Type(std::to_string(tick));
    Tick();
  }
  EXPECT_EQ(Files(), 0U);
  Type("99");
  Tick();
  EXPECT_EQ(Files(), 1U);
}

TEST_F(Drafts, Are_not_made_of_what_nobody_has_changed) {
  EXPECT_EQ(program_->FindDraft(), std::nullopt);
  ASSERT_TRUE(program_->View(10));
  Pause();
  Click(Counting().cmdEdit);
  Pause();
  program_->ClearShow();
  Click(Counting().cmdNew);
  Pause();
  EXPECT_EQ(Files(), 0U);
}

TEST_F(Drafts, Are_not_kept_where_the_host_has_no_store_for_them) {
  ViewAndEdit(10);
  Form().txtNotes.UserType("x");
  for (int tick = 0; tick < 50; ++tick) Form().Timer1.Fire();
  EXPECT_EQ(Files(), 0U);
  EXPECT_EQ(control.FindDraft(), std::nullopt);
}

TEST_F(Drafts, Are_gone_with_a_save_a_registration_or_a_cancel) {
  Edit(10);
  Type("7");
  Pause();
  EXPECT_EQ(Files(), 1U);
  Click(Counting().cmdTmpSave);
  EXPECT_EQ(Files(), 0U);

  Click(Counting().cmdEdit);
  Type("8");
  Pause();
  messages.WillAnswer(Answer::No);
  Click(Counting().cmdCancel);
  EXPECT_EQ(Files(), 1U) << "the user keeps entering";
  messages.WillAnswer(Answer::Yes);
  Click(Counting().cmdCancel);
  EXPECT_EQ(Files(), 0U);

  Click(Counting().cmdEdit);
  Type("9");
  Pause();
  EXPECT_EQ(Files(), 1U);
  Click(Counting().cmdIsFinalized);
  EXPECT_EQ(Files(), 0U);
  Crash();
  EXPECT_EQ(program_->FindDraft(), std::nullopt);
}

TEST_F(Drafts, That_are_restored_and_cancelled_are_not_what_is_stored) {
  Edit(10);
  Type("7");
  Pause();
  Crash();
  ASSERT_TRUE(program_->FindDraft());
  ASSERT_TRUE(program_->RestoreDraft());
  messages.WillAnswer(Answer::Yes);
  Click(Counting().cmdCancel);
  EXPECT_TRUE(Counting().cmdReadLines.Visible()) << "the stored lines can be read";
  Click(Counting().cmdEdit);
  EXPECT_FALSE(Counting().EntryIsWritten());
}

TEST_F(Drafts, Are_gone_with_a_save_that_comes_after_one_that_has_failed) {
  Edit(10);
  Type("7");
  Pause();
  failing.Plan().FailAt(1);
  Click(Counting().cmdTmpSave);
  failing.Plan().FailAt(0);
  ASSERT_EQ(Mode(), DocumentMode::Editing);
  EXPECT_EQ(Files(), 1U);
  Click(Counting().cmdTmpSave);
  ASSERT_EQ(Mode(), DocumentMode::Viewing);
  EXPECT_EQ(Files(), 0U);
}

TEST_F(Drafts, Stay_when_the_save_fails) {
  Edit(10);
  Type("7");
  Pause();
  failing.Plan().FailAt(4 + LooksForChangesFirst());
  Click(Counting().cmdTmpSave);
  failing.Plan().FailAt(0);
  EXPECT_EQ(Mode(), DocumentMode::Viewing) << "nobody knows what was stored";
  Pause();
  EXPECT_EQ(Files(), 1U);
  Click(Counting().cmdEdit);
  Pause();
  Click(Counting().cmdTmpSave);
  EXPECT_EQ(Files(), 0U) << "the second try has stored it";
}

TEST_F(Drafts, Hold_what_was_typed_right_before_a_save_that_never_ends) {
  Edit(10);
  Counting().Timer1.Fire();
  Type("7");
  messages.OnShow = [this](const FakeMessages::Message& /*question*/) { EXPECT_EQ(Files(), 1U); };
  database.Execute("update tblInventoryCounting set CreatorID=8,Notes='x' where ID=10");
  Click(Counting().cmdTmpSave);
  EXPECT_EQ(NewMessages().size(), 1U) << "the question about the other station";
}

TEST_F(Drafts, Hold_no_password) {
  EXPECT_EQ(OwnerOfDrafts("Provider=SQLOLEDB;Data Source=s;Password=geheim", 7).database.find("geheim"),
            std::string::npos);
}

TEST_F(Drafts, That_are_damaged_anywhere_are_set_aside_and_reported) {
  Edit(10);
  Type("7");
  Pause();
  program_.reset();
  const std::filesystem::path file = OnlyFile();
  const std::string whole = ContentOf(file);
  std::mt19937 random(1);
  for (int round = 0; round < 200 && !HasFailure(); ++round) {
    std::string text = whole;
    const std::size_t at = random() % text.size();
    if (round % 2 == 0) {
      text[at] = static_cast<char>(text[at] ^ (1 << random() % 8));
    } else {
      text.resize(at);
    }
    SCOPED_TRACE((round % 2 == 0 ? "changed at " : "cut off at ") + std::to_string(at));
    std::ofstream(file, std::ios::binary) << text;
    Start();
    NewMessages();
    EXPECT_EQ(program_->FindDraft(), std::nullopt);
    EXPECT_EQ(NewMessages().size(), 1U);
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_EQ(program_->FindDraft(), std::nullopt) << "only once";
    EXPECT_EQ(NewMessages(), Texts{});
  }
  EXPECT_EQ(Files(), 200U) << "all of them are kept";
}

TEST_F(Drafts, That_cannot_be_written_are_reported_once) {
  std::ofstream(folder_.Path() / "drafts") << "no folder";
  Edit(10);
  Type("7");
  Tick(100);
  Type("8");
  Tick(100);
  const Texts reported = NewMessages();
  ASSERT_EQ(reported.size(), 1U);
  EXPECT_TRUE(reported[0].starts_with("پيش\u200cنويس نوشته نشد: ")) << reported[0];
  std::filesystem::remove(folder_.Path() / "drafts");
  Tick(100);
  EXPECT_EQ(Files(), 1U) << "tried again";
}

/// The writes of drafts are run by the test.
class DraftsInAnotherThread : public Drafts {
 protected:
  DraftsInAnotherThread() {
    hasWriter_ = true;
    Start();
    Edit(10);
    Type("7");
    Pause();
  }
  ~DraftsInAnotherThread() override { writes_.clear(); }

  void RunWrite() {
    ASSERT_EQ(writes_.size(), 1U);
    std::exchange(writes_, {}).front()();
  }
  /// The write that waits runs while the desk waits for it.
  [[nodiscard]] std::jthread RunSoon() {
    return std::jthread([write = std::move(writes_.at(0))]() mutable { write(); });
  }
  void BreakFolder() { std::ofstream(folder_.Path() / "drafts") << "no folder"; }
};

TEST_F(DraftsInAnotherThread, Are_written_one_at_a_time_with_what_was_there_when_each_began) {
  EXPECT_EQ(Files(), 0U);
  Type("8");
  Tick(DraftKeeper::kMaxTicksUnwritten);
  RunWrite();
  EXPECT_EQ(DecodeDraft(ContentOf(OnlyFile())).cells.at(LineColumn::AcceptedCounting), "7");
  Pause();
  RunWrite();
  EXPECT_EQ(DecodeDraft(ContentOf(OnlyFile())).cells.at(LineColumn::AcceptedCounting), "8");
  Tick(DraftKeeper::kMaxTicksUnwritten);
  EXPECT_TRUE(writes_.empty());
}

TEST_F(DraftsInAnotherThread, That_could_not_be_written_are_reported_once_and_tried_again) {
  BreakFolder();
  RunWrite();
  Pause();
  const Texts reported = NewMessages();
  ASSERT_EQ(reported.size(), 1U);
  EXPECT_TRUE(reported[0].starts_with("پيش\u200cنويس نوشته نشد: ")) << reported[0];
  RunWrite();
  Pause();
  EXPECT_EQ(NewMessages(), Texts{});
  std::filesystem::remove(folder_.Path() / "drafts");
  RunWrite();
  EXPECT_EQ(Files(), 1U);
}

TEST_F(DraftsInAnotherThread, Are_gone_with_a_cancel_that_comes_before_their_end) {
  const std::jthread writer = RunSoon();
  messages.WillAnswer(Answer::Yes);
  Click(Counting().cmdCancel);
  EXPECT_EQ(Files(), 0U);
}

TEST_F(DraftsInAnotherThread, Are_whole_after_the_form_was_closed_before_their_end) {
  const std::jthread writer = RunSoon();
  program_.reset();
  EXPECT_EQ(DecodeDraft(ContentOf(OnlyFile())).Key(), "10");
}

}  // namespace
}  // namespace koru::test
