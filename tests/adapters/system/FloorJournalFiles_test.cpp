#include "adapters/system/FloorJournalFiles.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "platform/text/Errors.h"
#include "platform/text/FilePath.h"
#include "tests/support/TemporaryFolder.h"
#ifndef _WIN32
#include "tests/support/RefusedWrites.h"
#endif

namespace koru {
namespace {

namespace fs = std::filesystem;

using Texts = std::vector<std::string>;

const FloorJournalOwner kOwner{"a database", 20};

class FloorJournals : public testing::Test {
 protected:
  /// The only file with that ending.
  [[nodiscard]] fs::path File(const std::string& ending) const {
    for (const auto& entry : fs::directory_iterator(journals_)) {
      if (entry.path().extension() == ending) return entry.path();
    }
    return {};
  }

  test::TemporaryFolder folder_;
  fs::path journals_ = PathOf(folder_.File("پوشة كاربر")) / "floor";
  FloorJournalFiles store_{journals_};
  FloorJournalFiles otherProgram_{journals_};
};

TEST_F(FloorJournals, Hold_what_was_appended_for_the_next_program) {
  auto journal = store_.Open(kOwner);
  EXPECT_EQ(journal->Read(), "");
  journal->Begin("شروع\n");
  journal->Append("1\r\n");
  journal->Append("2\n3\n");
  journal->Sync();
  EXPECT_EQ(journal->Read(), "شروع\n1\r\n2\n3\n");
  journal.reset();
  EXPECT_EQ(otherProgram_.Open(kOwner)->Read(), "شروع\n1\r\n2\n3\n");
  EXPECT_EQ(otherProgram_.Open({"a database", 21})->Read(), "");
  EXPECT_EQ(otherProgram_.Open({"another", 20})->Read(), "");
}

TEST_F(FloorJournals, Are_found_without_opening_them_as_long_as_they_have_a_text) {
  EXPECT_FALSE(store_.Has(kOwner));
  auto journal = store_.Open(kOwner);
  EXPECT_FALSE(otherProgram_.Has(kOwner));
  journal->Begin("1\n");
  EXPECT_TRUE(otherProgram_.Has(kOwner));
  EXPECT_FALSE(store_.Has({"a database", 21}));
  journal->SetAside();
  EXPECT_FALSE(store_.Has(kOwner));
}

TEST_F(FloorJournals, Belong_to_one_program_at_a_time) {
  auto journal = store_.Open(kOwner);
  EXPECT_THROW(static_cast<void>(otherProgram_.Open(kOwner)), InputError);
  EXPECT_NO_THROW(static_cast<void>(otherProgram_.Open({"a database", 21})));
  journal.reset();
  EXPECT_NO_THROW(static_cast<void>(otherProgram_.Open(kOwner)));
}

TEST_F(FloorJournals, Are_begun_anew_and_continued) {
  const auto journal = store_.Open(kOwner);
  journal->Begin("1\n");
  journal->Append("2\n");
  journal->Begin("3\n");
  journal->Append("4\n");
  journal->Sync();
  EXPECT_EQ(journal->Read(), "3\n4\n");
}

TEST_F(FloorJournals, That_are_set_aside_are_found_there_the_last_one_first_and_removed_after_30_days) {
  auto journal = store_.Open(kOwner);
  EXPECT_EQ(journal->ReadSetAside(), Texts{});
  journal->Begin("1\n");
  const std::string first = journal->SetAside();
  EXPECT_EQ(first, TextOf(File(".aside"))) << "for people to find it";
  EXPECT_EQ(journal->Read(), "");
  EXPECT_EQ(journal->ReadSetAside(), Texts{"1\n"});
  journal->Begin("2\n");
  journal->SetAside();
  EXPECT_EQ(journal->ReadSetAside(), (Texts{"2\n", "1\n"}));
  EXPECT_EQ(journal->SetAside(), "");
  EXPECT_EQ(journal->ReadSetAside(), (Texts{"2\n", "1\n"})) << "there was nothing to set aside";
  EXPECT_EQ(otherProgram_.Open({"a database", 2})->ReadSetAside(), Texts{}) << "20 begins with 2";

  const fs::path aside = File(".aside");
  const std::string name = TextOf(aside.filename());
  const std::string stem = name.substr(0, name.rfind('-'));
  const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
  const auto write = [&](std::chrono::days age) {
    const auto seconds = (now - age).time_since_epoch().count();
    const fs::path file = journals_ / (stem + "-" + std::to_string(seconds) + ".aside");
    std::ofstream(file) << "old";
    return file;
  };
  const fs::path kept = write(std::chrono::days(29));
  const fs::path removed = write(std::chrono::days(31));
  journal.reset();
  journal = store_.Open(kOwner);
  EXPECT_TRUE(fs::exists(kept));
  EXPECT_FALSE(fs::exists(removed));
}

TEST_F(FloorJournals, That_are_set_aside_after_the_clock_was_set_back_are_the_last_ones) {
  auto journal = store_.Open(kOwner);
  journal->Begin("1\n");
  journal->SetAside();
  const fs::path first = File(".aside");
  const std::string name = TextOf(first.filename());
  const std::size_t at = name.rfind('-') + 1;
  const std::int64_t time = std::stoll(name.substr(at));
  fs::rename(first, first.parent_path() / (name.substr(0, at) + std::to_string(time + 86'400) + ".aside"));
  for (const char* const text : {"2\n", "3\n"}) {
    journal->Begin(text);
    journal->SetAside();
  }
  EXPECT_EQ(journal->ReadSetAside(), (Texts{"3\n", "2\n", "1\n"}));
}

TEST_F(FloorJournals, That_are_removed_leave_nothing) {
  auto journal = store_.Open(kOwner);
  journal->Begin("1\n");
  journal->Remove();
  journal->Remove();
  journal.reset();
  EXPECT_TRUE(fs::is_empty(journals_));
}

TEST_F(FloorJournals, That_was_never_begun_cannot_be_appended_to) {
  EXPECT_THROW(store_.Open(kOwner)->Append("1\n"), InputError);
}

#ifndef _WIN32
TEST_F(FloorJournals, Are_readable_by_their_user_alone) {
  const auto journal = store_.Open(kOwner);
  journal->Begin("1\n");
  constexpr auto kOthers = fs::perms::group_all | fs::perms::others_all;
  EXPECT_EQ(fs::status(File(".journal")).permissions() & kOthers, fs::perms::none);
  EXPECT_EQ(fs::status(journals_).permissions() & kOthers, fs::perms::none);
}

TEST_F(FloorJournals, On_a_full_disk_refuse_what_does_not_fit_and_hold_nothing_of_it) {
  const auto journal = store_.Open(kOwner);
  journal->Begin("1\n");
  {
    const test::FullDisk disk(1000);
    EXPECT_THROW(journal->Append(std::string(5000, 'x') + "\n"), InputError);
    EXPECT_EQ(journal->Read(), "1\n");
    EXPECT_THROW(journal->Begin(std::string(5000, 'x') + "\n"), InputError);
    EXPECT_EQ(journal->Read(), "1\n");
  }
  journal->Append("2\n");
  journal->Sync();
  EXPECT_EQ(journal->Read(), "1\n2\n");
}
#endif

}  // namespace
}  // namespace koru
