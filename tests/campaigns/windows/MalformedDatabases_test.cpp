// Malformed databases, walked through by all windows: what cannot be read is reported in Persian, nothing
// escapes, and nothing is written.

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>

#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/SqliteConnector.h"
#include "database/Sample.h"
#include "desktop/toolkit/QtText.h"
#include "host/HostWindow.h"
#include "tests/campaigns/windows/Malformations.h"
#include "tests/campaigns/windows/Walk.h"
#include "tests/desktop/WindowTools.h"
#include "tests/support/TemporaryFolder.h"

namespace koru::test {
namespace {

namespace fs = std::filesystem;

std::string ContentOf(const std::string& file) {
  if (!fs::is_regular_file(file)) return fs::exists(file) ? "a folder" : "nothing";
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

bool IsPersian(const std::string& text) {
  for (std::size_t at = 0; at < text.size(); ++at) {
    const auto lead = static_cast<unsigned char>(text[at]);
    if (lead >= 0xD8 && lead <= 0xDB) return true;
  }
  return false;
}

class MalformedDatabases : public testing::TestWithParam<Malformation> {
 protected:
  static void SetUpTestSuite() {
    folderOfSample_ = std::make_unique<TemporaryFolder>();
    CreateSample(folderOfSample_->File("sample.koru"), {});
  }
  static void TearDownTestSuite() { folderOfSample_.reset(); }

  void SetUp() override { fs::copy_file(folderOfSample_->File("sample.koru"), file_); }

  /// The host screen, then a stored temporary counting, a final one, and a new one, with all that they open.
  void WalkThrough(Walk& walk, bool isBrief = false) {
    HostSession session(fs::path(folder_.File("settings.ini")));
    HostWindow host(session, folder_.File("sample.koru"));
    host.Control().SetOLEConnectionString(ToQt(EmbeddedConnectionText(file_)));
    Open(host);
    host.ReadDatabase();
    host.Control().SetUserID(1);
    if (isBrief) return;  // each statement on a locked file takes the seconds that it waits for the lock
    for (const char* number : {"8", "17", "1"}) {
      host.findChild<QLineEdit*>(QStringLiteral("number"))->setText(QString::fromLatin1(number));
      walk.Press(host, "open");
      WalkThroughCounting(walk);
    }
    walk.Through(host);
    WalkThroughCounting(walk);
  }

  static void WalkThroughCounting(Walk& walk) {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
      if (window->objectName() != QLatin1String("frmInvCounting") || !window->isVisible()) continue;
      walk.Through(*window);
      return;
    }
  }

  static std::unique_ptr<TemporaryFolder> folderOfSample_;
  TemporaryFolder folder_;
  std::string file_ = folder_.File("work.koru");
};
std::unique_ptr<TemporaryFolder> MalformedDatabases::folderOfSample_;

TEST_P(MalformedDatabases, Are_walked_through_without_a_word_that_is_not_persian_and_nothing_is_written) {
  GetParam().spoil(file_);
  std::optional<SqliteConnection> other;
  if (GetParam().isLocked) {
    other.emplace(file_, SqliteConnection::Mode::Existing, std::chrono::seconds(0));
    other->Execute("PRAGMA locking_mode=EXCLUSIVE; begin exclusive");
  }
  const std::string before = ContentOf(file_);
  Walk walk;
  EXPECT_NO_THROW(WalkThrough(walk, GetParam().isLocked));
  for (const std::string& message : walk.Messages()) EXPECT_TRUE(IsPersian(message)) << message;
  EXPECT_TRUE(ContentOf(file_) == before) << "something was written";
  other.reset();
}

INSTANTIATE_TEST_SUITE_P(Of, MalformedDatabases, testing::ValuesIn(Malformations()),
                         [](const auto& info) { return info.param.name; });

/// The walk reaches every window: otherwise the campaign would prove nothing.
TEST_F(MalformedDatabases, A_whole_database_leads_the_walk_through_every_window) {
  Walk walk;
  WalkThrough(walk);
  for (const char* window : {"host", "frmInvCounting", "frmInvSearch", "frmGoodSearch", "frmReport",
                             "GrnBPGoodPicker", "comInvReceipt"}) {
    EXPECT_TRUE(walk.Seen().contains(QLatin1String(window))) << window;
  }
  std::string seen;
  for (const QString& name : walk.Seen()) seen += name.toStdString() + " ";
  RecordProperty("seen", seen);
  std::cout << seen << "\n";
}

}  // namespace
}  // namespace koru::test
