#include "host/HostSettings.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "adapters/system/TemporaryFolder.h"

namespace koru {
namespace {

constexpr const char* kServer = "Provider=SQLOLEDB.1;Data Source=h;User ID=u;Password=s3cret";

class HostSettingsTest : public testing::Test {
 protected:
  [[nodiscard]] std::string Text() const {
    std::ifstream stream(file_, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }

  TemporaryFolder folder_;
  std::filesystem::path file_ = folder_.Path() / "a.ini";
};

TEST_F(HostSettingsTest, A_password_is_never_written) {
  HostSettings settings(file_);
  settings.Properties().Write("OleConnectionString", std::string(kServer), std::string("0"));
  settings.RememberDatabase("Provider=SQLOLEDB.1;Data Source=h;PWD='s3cret';UID=u");
  settings.Write();
  EXPECT_EQ(Text().find("s3cret"), std::string::npos) << Text();
  EXPECT_EQ(HostSettings(file_).Properties().Read("OleConnectionString", std::string()),
            PropertyValue(std::string("Provider=SQLOLEDB.1;Data Source=h;User ID=u")));
}

TEST_F(HostSettingsTest, A_password_of_an_earlier_version_is_removed_from_the_file_at_the_start) {
  std::ofstream(file_) << "[comInvCounting]\nOleConnectionString=" << kServer << "\nUserID=3\n";
  HostSettings settings(file_);
  EXPECT_EQ(Text(),
            "[comInvCounting]\nOleConnectionString=Provider=SQLOLEDB.1;Data Source=h;User ID=u\nUserID=3\n");
}

TEST_F(HostSettingsTest, The_databases_that_were_used_come_back_newest_first_and_each_once) {
  HostSettings settings(file_);
  settings.RememberDatabase("Provider=SQLite;Data Source=a.db");
  settings.RememberDatabase(kServer);
  settings.RememberDatabase("Provider=SQLite;Data Source=a.db");
  settings.Write();
  EXPECT_EQ(HostSettings(file_).RecentDatabases(),
            (std::vector<std::string>{"Provider=SQLite;Data Source=a.db",
                                      "Provider=SQLOLEDB.1;Data Source=h;User ID=u"}));
  for (int number = 0; number < 20; ++number)
    settings.RememberDatabase("Provider=SQLite;Data Source=" + std::to_string(number));
  EXPECT_EQ(settings.RecentDatabases().size(), HostSettings::kMaxRecent);
  EXPECT_EQ(settings.RecentDatabases().front(), "Provider=SQLite;Data Source=19");
}

TEST_F(HostSettingsTest, A_size_comes_back_and_one_that_cannot_be_read_is_none) {
  HostSettings settings(file_);
  settings.KeepSize("host", {900, 500, true});
  settings.Write();
  EXPECT_EQ(HostSettings(file_).SizeOf("host"), (WindowSize{900, 500, true}));
  EXPECT_EQ(HostSettings(file_).SizeOf("manual"), std::nullopt);
  for (const char* broken : {"large", "900", "0x5", "900x", "-3x100"}) {
    std::ofstream(file_) << "[program]\nSize.host=" << broken << '\n';
    EXPECT_EQ(HostSettings(file_).SizeOf("host"), std::nullopt) << broken;
  }
}

}  // namespace
}  // namespace koru
