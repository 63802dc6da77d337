#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "platform/text/Errors.h"
#include "tests/database/SampleFixture.h"

namespace koru::test {
namespace {

std::string BytesOf(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace

TEST(SampleFile, Is_the_same_every_time_it_is_made) {
  const TemporaryFolder folder;
  CreateSample(folder.File("one"), {});
  CreateSample(folder.File("two"), {});
  const std::string one = BytesOf(folder.File("one"));
  EXPECT_GT(one.size(), 500'000U);
  EXPECT_TRUE(one == BytesOf(folder.File("two")));
}

TEST(SampleFile, Never_replaces_an_existing_file) {
  const TemporaryFolder folder;
  std::ofstream(folder.File("mine")) << "my own";
  EXPECT_THROW(CreateSample(folder.File("mine"), {}), InputError);
  EXPECT_EQ(BytesOf(folder.File("mine")), "my own");
}

TEST(SampleFile, Leaves_no_file_when_it_is_interrupted) {
  const TemporaryFolder folder;
  const SampleProgress stop = [](int percent) {
    if (percent > 30) throw std::runtime_error("stop");
  };
  EXPECT_THROW(CreateSample(folder.File("half"), stop), std::runtime_error);
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST(SampleFile, Reports_its_progress_from_0_to_100) {
  const TemporaryFolder folder;
  std::vector<int> reported;
  CreateSample(folder.File("sample"), [&reported](int percent) { reported.push_back(percent); });
  ASSERT_GE(reported.size(), 3U);
  EXPECT_EQ(reported.front(), 0);
  EXPECT_EQ(reported.back(), 100);
  EXPECT_TRUE(std::is_sorted(reported.begin(), reported.end()));
}

TEST_F(SampleTest, Is_a_sound_database) { EXPECT_EQ(Text("pragma integrity_check"), "ok"); }

}  // namespace koru::test
