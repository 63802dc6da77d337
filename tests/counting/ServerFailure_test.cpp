#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <memory>

#include "adapters/odbc/OdbcConnector.h"
#include "lines/LineColumns.h"
#include "platform/sql/DatabaseError.h"
#include "tests/counting/CountingWorld.h"
#include "tests/tools/tds-stand-in/ScriptedServer.h"

namespace koru::test {
namespace {

using Answer = ScriptedServer::Answer;
using Script = ScriptedServer::Script;
using std::chrono::year;

constexpr OdbcTimeouts kShort{std::chrono::seconds(1), std::chrono::seconds(1)};
/// The longest wait of a user, with what a machine under load adds to it.
constexpr std::chrono::seconds kAtMost{8};
constexpr const char* kPassword = "s3cret";

/// The counting form on a server that does as the test says: user 7 holds every right and may work in store
/// 2; new countings get the key 17.
class ServerFailure : public CountingWorld {
 protected:
  /// Starts the server, and opens an empty form on it.
  void OpenForm() {
    Start();
    onServer.ClearShow();
    ASSERT_TRUE(OnServer().Visible());
  }
  void Start() {
    Script script;
    script.statement = [this](const std::string& statement) { return AnswerTo(statement); };
    script.signIn = [this] {
      return isRefusing_ ? Answer{Answer::Kind::Refusal, 18456, "Login failed for user 'clerk'."} : Answer{};
    };
    server = std::make_unique<ScriptedServer>(script);
    onServer.SetOLEConnectionString(server->ConnectionText());
    onServer.SetUserID(7);
  }

  /// Begins a counting of store 2 with a header and three counted goods.
  void EnterCounting() {
    Click(OnServer().cmdNew);
    OnServer().gmpInventory.UserSelect(2);
    OnServer().gdpFromDate.UserSet(year{2025} / 3 / 21);
    OnServer().gdpToDate.UserSet(year{2026} / 3 / 20);
    OnServer().txtNotes.UserType("شمارش پايان سال");
    OnServer().txtGNO.UserType("A-17");
    for (const char* barcode : {"100", "200", "300"}) {
      OnServer().flexDetail.AddItem({});
      const int row = OnServer().flexDetail.Rows() - 1;
      OnServer().flexDetail.SetTextMatrix(row, LineColumn::Barcode, barcode);
      OnServer().flexDetail.SetTextMatrix(row, LineColumn::GoodName, "چاي");
      EXPECT_TRUE(
          OnServer().flexDetail.UserEdit(row, LineColumn::AcceptedCounting, std::string(barcode) + ".5"));
    }
    ASSERT_EQ(NewMessages(), Texts{});
  }

  void ExpectAllIsThere() {
    EXPECT_EQ(OnServer().gmpInventory.SelectedID(), 2);
    EXPECT_EQ(OnServer().gdpFromDate.PersianText(), "1404/01/01");
    EXPECT_EQ(OnServer().gdpToDate.PersianText(), "1404/12/29");
    EXPECT_EQ(OnServer().txtNotes.Text(), "شمارش پايان سال");
    EXPECT_EQ(OnServer().txtGNO.Text(), "A-17");
    ASSERT_EQ(OnServer().flexDetail.Rows(), 4);
    for (int row = 1; row <= 3; ++row) {
      EXPECT_EQ(OnServer().flexDetail.TextMatrix(row, LineColumn::AcceptedCounting),
                std::to_string(row * 100) + ".5");
    }
    EXPECT_TRUE(OnServer().Visible());
    EXPECT_EQ(screen.CurrentCursor(), Cursor::Normal);
    EXPECT_FALSE(OnServer().pgbStatus.Visible());
  }

  /// The one message since the last look; it holds `sentence` and no password, and came in time.
  template <class Action>
  void ExpectMessage(const std::string& sentence, Action action) {
    const auto begin = std::chrono::steady_clock::now();
    action();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, kAtMost);
    const Texts shown = NewMessages();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_NE(shown[0].find(sentence), std::string::npos) << shown[0];
    EXPECT_EQ(shown[0].find(kPassword), std::string::npos) << shown[0];
  }

  [[nodiscard]] frmInvCounting& OnServer() { return *onServer.CountingForm(); }
  [[nodiscard]] DocumentMode ModeOnServer() const { return onServer.Shared().DocMode; }
  [[nodiscard]] int TimesSent(const std::string& part) const {
    const auto statements = server->Statements();
    return static_cast<int>(std::count_if(statements.begin(), statements.end(), [&](const std::string& sent) {
      return sent.find(part) != std::string::npos;
    }));
  }
  /// The statements that hold this part are answered so, until another is set.
  void Answering(const std::string& part, Answer::Kind kind) {
    part_ = part;
    kind_ = kind;
  }
  void AnsweringAgain() { part_.clear(); }
  void RefuseSignIns(bool refuse) { isRefusing_ = refuse; }

  std::unique_ptr<ScriptedServer> server;
  OdbcConnector odbc{kShort};
  comInvCounting onServer{*this,
                          {.databases = odbc,
                           .components = components,
                           .screen = screen,
                           .clock = clock,
                           .files = files,
                           .spreadsheets = spreadsheets}};

 private:
  /// Called on the server's thread, while the form waits for the answer.
  Answer AnswerTo(const std::string& statement) {
    if (!part_.empty() && statement.find(part_) != std::string::npos) return {kind_, 0, {}};
    if (statement.starts_with("CALL ")) return {Answer::Kind::Done, 1, {}};
    if (statement.starts_with("Select * From tblInventoryUser")) return OneField("InventoryID", 2);
    if (statement.starts_with("select max(id)")) return OneField("maxid", 17);
    return {};
  }

  std::string part_;
  Answer::Kind kind_ = Answer::Kind::Done;
  std::atomic<bool> isRefusing_{false};
};

constexpr const char* kSecondLine = "Values(17,'200',2,";

TEST_F(ServerFailure, A_counting_is_saved_on_a_server_that_answers) {
  OpenForm();
  EnterCounting();
  Click(OnServer().cmdTmpSave);
  EXPECT_EQ(NewMessages(), Texts{});
  EXPECT_EQ(ModeOnServer(), DocumentMode::Viewing);
  EXPECT_EQ(TimesSent("Insert Into tblInventoryCountingDetail"), 3);
  EXPECT_EQ(TimesSent("N'شمارش پايان سال'"), 1);
  EXPECT_EQ(server->SignIns(), 1);
  ExpectAllIsThere();
}

TEST_F(ServerFailure, A_server_that_is_not_there_is_named_to_the_host) {
  Start();
  const std::string text = server->ConnectionText();
  server.reset();
  try {
    onServer.ClearShow();
    FAIL();
  } catch (const DatabaseError& failure) {
    EXPECT_TRUE(failure.ServerText().starts_with("به سرور «127.0.0.1,")) << failure.ServerText();
    EXPECT_EQ(failure.ServerText().find(kPassword), std::string::npos);
  }
  EXPECT_EQ(screen.CurrentCursor(), Cursor::Normal);
  Start();  // another server, and the form opens
  onServer.ClearShow();
  EXPECT_TRUE(OnServer().Visible());
}

TEST_F(ServerFailure, A_refused_sign_in_is_reported_to_the_host_and_the_next_opening_tries_again) {
  RefuseSignIns(true);
  Start();
  try {
    onServer.ClearShow();
    FAIL();
  } catch (const DatabaseError& failure) {
    EXPECT_NE(failure.ServerText().find("نام كاربر يا گذرواژه را نپذيرفت"), std::string::npos);
    EXPECT_EQ(failure.ServerText().find(kPassword), std::string::npos);
  }
  RefuseSignIns(false);
  onServer.ClearShow();
  EXPECT_TRUE(OnServer().Visible());
}

TEST_F(ServerFailure, A_server_that_falls_silent_in_the_middle_of_a_save_loses_nothing_that_was_typed) {
  OpenForm();
  EnterCounting();
  Answering(kSecondLine, Answer::Kind::Silence);
  ExpectMessage("تغييرات اين فرمان ثبت نشد.\nسرور در 1 ثانيه پاسخي نداد.",
                [this] { Click(OnServer().cmdTmpSave); });
  ExpectAllIsThere();
  EXPECT_EQ(OnServer().lblIDVal.Caption(), "") << "the server has undone it";
  EXPECT_EQ(ModeOnServer(), DocumentMode::New);
  EXPECT_EQ(TimesSent(kSecondLine), 1);
  EXPECT_EQ(server->SignIns(), 1) << "nobody connects before the user does something";

  AnsweringAgain();
  Click(OnServer().cmdTmpSave);
  EXPECT_EQ(NewMessages(), Texts{});
  EXPECT_EQ(server->SignIns(), 2);
  EXPECT_EQ(TimesSent(kSecondLine), 2) << "once more, for the user has saved once more";
  EXPECT_EQ(OnServer().lblIDVal.Caption(), "17");
  ExpectAllIsThere();
}

TEST_F(ServerFailure, A_server_that_hangs_up_in_the_middle_of_a_save_loses_nothing_that_was_typed) {
  OpenForm();
  EnterCounting();
  Answering(kSecondLine, Answer::Kind::Close);
  ExpectMessage("تغييرات اين فرمان ثبت نشد.\nارتباط با سرور قطع شد.",
                [this] { Click(OnServer().cmdTmpSave); });
  ExpectAllIsThere();
  EXPECT_EQ(ModeOnServer(), DocumentMode::New);
  EXPECT_EQ(TimesSent(kSecondLine), 1);
  AnsweringAgain();
  Click(OnServer().cmdTmpSave);
  EXPECT_EQ(NewMessages(), Texts{});
  EXPECT_EQ(server->SignIns(), 2);
}

TEST_F(ServerFailure, The_header_of_a_new_counting_that_got_no_answer_is_not_sent_by_itself) {
  OpenForm();
  EnterCounting();
  Answering("insert into tblInventoryCounting ", Answer::Kind::Silence);
  ExpectMessage("تغييرات اين فرمان ثبت نشد", [this] { Click(OnServer().cmdTmpSave); });
  ExpectAllIsThere();
  EXPECT_EQ(TimesSent("insert into tblInventoryCounting "), 1);
  EXPECT_EQ(TimesSent("Delete tblInventoryCountingDetail"), 0);
  EXPECT_EQ(ModeOnServer(), DocumentMode::New);
}

TEST_F(ServerFailure, A_server_that_is_gone_when_a_save_begins_is_named_each_time_and_nothing_is_lost) {
  OpenForm();
  EnterCounting();
  server.reset();
  ExpectMessage("ارتباط با سرور قطع شد", [this] { Click(OnServer().cmdTmpSave); });
  ExpectAllIsThere();
  ExpectMessage("وصل نشد", [this] { Click(OnServer().cmdTmpSave); });
  ExpectAllIsThere();
  EXPECT_EQ(ModeOnServer(), DocumentMode::New);
}

TEST_F(ServerFailure, A_password_that_was_changed_meanwhile_is_reported_when_the_form_connects_again) {
  OpenForm();
  EnterCounting();
  RefuseSignIns(true);
  Answering("insert into tblInventoryCounting ", Answer::Kind::Close);
  ExpectMessage("ارتباط با سرور قطع شد", [this] { Click(OnServer().cmdTmpSave); });
  ExpectMessage("نام كاربر يا گذرواژه را نپذيرفت", [this] { Click(OnServer().cmdTmpSave); });
  ExpectAllIsThere();
  EXPECT_EQ(TimesSent("insert into tblInventoryCounting "), 1);
  RefuseSignIns(false);
  AnsweringAgain();
  Click(OnServer().cmdTmpSave);
  EXPECT_EQ(NewMessages(), Texts{});
  EXPECT_EQ(ModeOnServer(), DocumentMode::Viewing);
}

}  // namespace
}  // namespace koru::test
