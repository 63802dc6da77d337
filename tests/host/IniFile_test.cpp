#include "host/IniFile.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "adapters/system/TemporaryFolder.h"
#include "platform/text/Errors.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

class IniFileTest : public testing::Test {
 protected:
  void Write(const std::string& text) const { std::ofstream(file_, std::ios::binary) << text; }
  [[nodiscard]] std::string Text() const {
    std::ifstream stream(file_, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }
  [[nodiscard]] std::string ErrorOf(const std::string& text) const {
    Write(text);
    try {
      static_cast<void>(IniFile::Read(file_));
    } catch (const InputError& error) {
      EXPECT_EQ(Text(), text) << "the broken file must stay as it is";
      return error.what();
    }
    return "no error";
  }

  TemporaryFolder folder_;
  std::filesystem::path file_ = folder_.Path() / "a.ini";
};

TEST_F(IniFileTest, A_file_that_is_not_there_is_empty) {
  EXPECT_EQ(IniFile::Read(file_).Get("comInvCounting", "UserID"), std::nullopt);
  EXPECT_FALSE(std::filesystem::exists(file_));
}

TEST_F(IniFileTest, Values_come_back_as_they_were_given) {
  IniFile ini = IniFile::Read(file_);
  for (const char* value : {"3", "", " بلنک ", "\"", "a\"b\\c", "\"x\\", "خط ۱\nخط ۲", "a=b;c", "[x]"}) {
    ini.Set("s", "k", value);
    ini.Write();
    EXPECT_EQ(IniFile::Read(file_).Get("s", "k"), value);
  }
}

TEST_F(IniFileTest, What_the_program_does_not_know_stays_in_the_file) {
  Write("; by hand\n[other]\nx = 1\n\n[s]\nk=old\n; end\n");
  IniFile ini = IniFile::Read(file_);
  ini.Set("s", "k", "new");
  ini.Set("s", "j", "2");
  ini.Set("new", "y", "3");
  ini.Remove("other", "none");
  ini.Write();
  EXPECT_EQ(Text(), "; by hand\n[other]\nx=1\n\n[s]\nk=new\n; end\nj=2\n[new]\ny=3\n");
}

TEST_F(IniFileTest, The_same_key_in_another_section_is_another_key) {
  Write("k=0\n[a]\nk=1\n[b]\nk=2\n");
  IniFile ini = IniFile::Read(file_);
  EXPECT_EQ(ini.Get("", "k"), "0");
  EXPECT_EQ(ini.Get("a", "k"), "1");
  EXPECT_EQ(ini.Get("b", "k"), "2");
  ini.Remove("a", "k");
  EXPECT_EQ(ini.Get("a", "k"), std::nullopt);
  EXPECT_EQ(ini.Get("b", "k"), "2");
}

TEST_F(IniFileTest, A_key_that_is_written_twice_is_gone_when_it_is_removed) {
  Write("[a]\nk=1\nj=2\nk=3\n");
  IniFile ini = IniFile::Read(file_);
  ini.Remove("a", "k");
  EXPECT_EQ(ini.Get("a", "k"), std::nullopt);
  EXPECT_EQ(ini.Get("a", "j"), "2");
}

TEST_F(IniFileTest, A_broken_line_is_named_with_file_and_line) {
  const std::string name = "پروندة تنظيمات " + LeftToRight(file_.string());
  EXPECT_EQ(ErrorOf("[a]\nx=1\nnonsense\n"), name + "، سطر 3: اين سطر به شكل «نام=مقدار» نيست.");
  EXPECT_EQ(ErrorOf("=1\n"), name + "، سطر 1: اين سطر به شكل «نام=مقدار» نيست.");
  EXPECT_EQ(ErrorOf("\n[a\n"), name + "، سطر 2: نام بخش با ] بسته نشده است.");
  EXPECT_EQ(ErrorOf("x=\"1\n"), name + "، سطر 1: گيومه يا نشانة \\ مقدار درست نيست.");
  EXPECT_EQ(ErrorOf("x=\"\\q\"\n"), name + "، سطر 1: گيومه يا نشانة \\ مقدار درست نيست.");
  EXPECT_EQ(ErrorOf("x=\"1\"2\n"), name + "، سطر 1: گيومه يا نشانة \\ مقدار درست نيست.");
}

TEST_F(IniFileTest, A_place_that_cannot_be_written_leaves_the_old_file) {
  Write("[s]\nk=1\n");
  std::filesystem::create_directory(folder_.Path() / "a.ini.new");
  IniFile ini = IniFile::Read(file_);
  ini.Set("s", "k", "2");
  EXPECT_THROW(ini.Write(), InputError);
  EXPECT_EQ(Text(), "[s]\nk=1\n");
}

TEST_F(IniFileTest, Only_the_owner_can_read_the_file) {
  IniFile ini = IniFile::Read(file_);
  ini.Set("s", "k", "secret");
  ini.Write();
  using std::filesystem::perms;
  EXPECT_EQ(std::filesystem::status(file_).permissions(), perms::owner_read | perms::owner_write);
}

}  // namespace
}  // namespace koru
