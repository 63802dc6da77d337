#include "adapters/system/DraftFiles.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/text/FilePath.h"
#include "tests/support/TemporaryFolder.h"

namespace koru {
namespace {

namespace fs = std::filesystem;

const DraftOwner kOwner{"a database", 7};

class KeptDrafts : public testing::Test {
 protected:
  [[nodiscard]] std::size_t Files() const {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(drafts_), {}));
  }
  /// The name that the only draft has without its ending.
  [[nodiscard]] fs::path Stem() const { return drafts_ / fs::directory_iterator(drafts_)->path().stem(); }
  /// What a program that is ended may leave beside a draft, or without one.
  void Leave(const char* ending) const { std::ofstream(fs::path(Stem()).replace_extension(ending)) << "x"; }

  test::TemporaryFolder folder_;
  fs::path drafts_ = PathOf(folder_.File("پوشة كاربر")) / "drafts";
  DraftFiles store_{drafts_};
  DraftFiles otherProgram_{drafts_};
};

TEST_F(KeptDrafts, Are_found_when_their_program_has_ended_and_by_one_program_alone) {
  auto draft = store_.Begin(kOwner);
  draft->Write("متن\r\nسطر\n");
  EXPECT_EQ(otherProgram_.FindLeft(kOwner), nullptr);
  EXPECT_EQ(store_.FindLeft(kOwner), nullptr) << "another form of the same program";
  draft.reset();
  EXPECT_EQ(otherProgram_.FindLeft({"a database", 8}), nullptr);
  const auto found = otherProgram_.FindLeft(kOwner);
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->Read(), "متن\r\nسطر\n");
  EXPECT_EQ(store_.FindLeft(kOwner), nullptr);
}

TEST_F(KeptDrafts, Are_replaced_as_a_whole_as_often_as_is_written) {
  const auto draft = store_.Begin(kOwner);
  for (const std::string& text : {std::string(100'000, 'x'), std::string("short"), std::string()}) {
    draft->Write(text);
    EXPECT_EQ(draft->Read(), text);
  }
  EXPECT_EQ(otherProgram_.FindLeft(kOwner), nullptr);
}

TEST_F(KeptDrafts, Leave_an_empty_folder_when_they_are_removed) {
  const auto draft = store_.Begin(kOwner);
  draft->Write("1");
  draft->Remove();
  EXPECT_EQ(Files(), 0U);
  draft->Write("2");
  EXPECT_EQ(draft->Read(), "2");
  draft->Remove();
  draft->Remove();
  EXPECT_EQ(Files(), 0U);
}

TEST_F(KeptDrafts, That_are_set_aside_are_kept_and_not_found) {
  const auto draft = store_.Begin(kOwner);
  draft->Write("1");
  const std::string kept = draft->SetAside();
  EXPECT_TRUE(fs::exists(PathOf(kept))) << kept;
  EXPECT_EQ(Files(), 1U);
  EXPECT_EQ(otherProgram_.FindLeft(kOwner), nullptr);
}

TEST_F(KeptDrafts, Of_a_program_that_was_ended_while_it_wrote_are_the_ones_before) {
  store_.Begin(kOwner)->Write("before");
  Leave(".draft.new");
  Leave(".lock");
  auto found = store_.FindLeft(kOwner);
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->Read(), "before");
  found->Remove();
  EXPECT_EQ(Files(), 0U);
}

TEST_F(KeptDrafts, That_were_never_written_are_not_found_and_what_they_left_is_removed) {
  store_.Begin(kOwner)->Write("x");
  const fs::path file = fs::path(Stem()).replace_extension(".draft");
  Leave(".draft.new");
  Leave(".lock");
  fs::remove(file);
  EXPECT_EQ(store_.FindLeft(kOwner), nullptr);
  EXPECT_EQ(Files(), 0U);
}

TEST_F(KeptDrafts, Are_offered_latest_first) {
  const auto now = fs::file_time_type::clock::now();
  auto first = store_.Begin(kOwner);
  first->Write("first");
  fs::last_write_time(fs::path(Stem()).replace_extension(".draft"), now - std::chrono::hours(1));
  store_.Begin(kOwner)->Write("second");
  first.reset();
  const auto found = store_.FindLeft(kOwner);
  const auto next = store_.FindLeft(kOwner);
  ASSERT_TRUE(found && next);
  EXPECT_EQ(found->Read(), "second");
  EXPECT_EQ(next->Read(), "first");
}

}  // namespace
}  // namespace koru
