#include "host/HostWindow.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QTableView>
#include <QTextBrowser>

#include "desktop/forms/FormWindow.h"
#include "draft/DraftKeeper.h"
#include "host/SampleProgressWindow.h"
#include "platform/text/Errors.h"
#include "tests/desktop/WindowTools.h"
#include "tests/host/HostFixture.h"

namespace koru {
namespace {

using test::HostWindowTest;

TEST_F(HostWindowTest, Everybody_who_can_sign_in_is_offered_and_somebody_is_signed_in) {
  const auto program = Start();
  program->window.ReadDatabase();
  const auto& users = Find<QComboBox>(program->window, "users");
  EXPECT_EQ(users.count(), 12);
  EXPECT_EQ(users.currentData().toInt(), program->window.Control().UserID());
  for (int user = 0; user < users.count(); ++user) {
    EXPECT_LE(program->window.Control().UserID(), users.itemData(user).toInt()) << "who came first";
  }
  EXPECT_EQ(Find<QLabel>(program->window, "database").text().toStdString(), database_);
}

TEST_F(HostWindowTest, User_and_database_are_the_same_after_a_restart) {
  int chosen = 0;
  {
    const auto program = Start();
    program->window.ReadDatabase();
    test::Open(program->window);
    auto& users = Find<QComboBox>(program->window, "users");
    const int before = program->window.Control().UserID();
    users.setFocus();
    test::Press(users.currentIndex() == 0 ? Qt::Key_End : Qt::Key_Home);
    chosen = program->window.Control().UserID();
    EXPECT_NE(chosen, before);
    EXPECT_EQ(chosen, users.currentData().toInt());
  }
  const auto program = Start(false);
  EXPECT_EQ(program->window.Control().OLEConnectionString().toStdString(), EmbeddedConnectionText(database_));
  program->window.ReadDatabase();
  EXPECT_EQ(program->window.Control().UserID(), chosen);
  EXPECT_EQ(Find<QComboBox>(program->window, "users").currentData().toInt(), chosen);
}

TEST_F(HostWindowTest, A_setting_of_the_forms_is_the_same_after_a_restart) {
  {
    const auto program = Start();
    PropertyBag& preferences = *program->session.Services().preferences;
    EXPECT_EQ(std::get<bool>(preferences.Read("EnterGoesDown", false)), false);
    preferences.Write("EnterGoesDown", true, false);
  }
  const auto program = Start(false);
  EXPECT_TRUE(std::get<bool>(program->session.Services().preferences->Read("EnterGoesDown", false)));
}

/// A program that ends while a counting is being entered, and is started again.
class HostWindowDrafts : public HostWindowTest {
 protected:
  void SetUp() override {
    HostWindowTest::SetUp();
    const auto program = Start();
    Open(*program);
    QWidget* const form = &BeginNew(*program);
    auto* const notes = form->findChild<QPlainTextEdit*>(QStringLiteral("txtNotes"));
    notes->setFocus();
    test::Type(QStringLiteral("انبار پشتي"));
    auto* const timer =
        qobject_cast<FormWindow*>(form)->Binding().findChild<QTimer*>(QStringLiteral("Timer1"));
    for (int tick = 0; tick < DraftKeeper::kPauseTicks; ++tick) QMetaObject::invokeMethod(timer, "timeout");
  }
  static void Open(Program& program) {
    test::Open(program.window);
    program.window.ReadDatabase();
  }
  static QWidget& OfferOf(Program& program) { return Find<QWidget>(program.window, "draftOffer"); }
  [[nodiscard]] std::vector<std::filesystem::path> Files() const {
    const std::filesystem::directory_iterator files(settings_.parent_path() / "drafts");
    std::vector<std::filesystem::path> drafts(begin(files), end(files));
    std::erase_if(drafts, [](const auto& file) { return file.extension() == ".lock"; });
    return drafts;
  }
};

TEST_F(HostWindowDrafts, Are_offered_at_the_next_start_and_come_back_with_enter) {
  const auto program = Start(false);
  Open(*program);
  ASSERT_TRUE(OfferOf(*program).isVisible());
  const QString sentence = Find<QLabel>(program->window, "draftSentence").text();
  EXPECT_TRUE(sentence.startsWith(QStringLiteral("شمارش تازه\u200cاي با 0 رديف ذخيره نشده است.")))
      << sentence.toStdString();
  test::Press(Qt::Key_Enter);
  QWidget* const form = InvCountingWindow();
  ASSERT_NE(form, nullptr);
  EXPECT_EQ(form->findChild<QPlainTextEdit*>(QStringLiteral("txtNotes"))->toPlainText(),
            QStringLiteral("انبار پشتي"));
  EXPECT_TRUE(form->findChild<QAbstractButton*>(QStringLiteral("cmdCancel"))->isEnabled());
  EXPECT_FALSE(OfferOf(*program).isVisible());
}

TEST_F(HostWindowDrafts, Are_left_for_later_with_escape) {
  const auto program = Start(false);
  Open(*program);
  test::Press(Qt::Key_Escape);
  EXPECT_FALSE(OfferOf(*program).isVisible());
  EXPECT_EQ(Files().size(), 1U);
  program->window.ReadDatabase();
  EXPECT_TRUE(OfferOf(*program).isVisible());
}

TEST_F(HostWindowDrafts, Are_discarded_after_a_question) {
  const auto program = Start(false);
  Open(*program);
  test::Press(Qt::Key_Tab);
  test::WhenDialogOpens([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
  test::Press(Qt::Key_Enter);
  EXPECT_TRUE(OfferOf(*program).isVisible());
  test::Open(program->window);
  test::WhenDialogOpens(
      [](QWidget& dialog) { dialog.findChild<QAbstractButton*>(QStringLiteral("yes"))->click(); });
  test::Press(Qt::Key_Enter);
  EXPECT_FALSE(OfferOf(*program).isVisible());
  EXPECT_TRUE(Files().empty());
}

TEST_F(HostWindowDrafts, Are_offered_to_the_user_who_signs_in_again) {
  const auto program = Start(false);
  Open(*program);
  const int user = program->window.Control().UserID();
  program->window.Control().SetUserID(user + 1);
  EXPECT_FALSE(OfferOf(*program).isVisible());
  program->window.Control().SetUserID(user);
  EXPECT_TRUE(OfferOf(*program).isVisible());
}

TEST_F(HostWindowDrafts, That_are_damaged_are_reported_and_the_program_starts) {
  std::filesystem::resize_file(Files().front(), 100);
  const auto program = Start(false);
  test::Open(program->window);
  std::string reported;
  test::WhenDialogOpens([&](QWidget& dialog) { reported = Acknowledge(dialog); });
  program->window.ReadDatabase();
  EXPECT_TRUE(reported.starts_with("پيش\u200cنويس شمارش ناقص يا آسيب\u200cديده است.")) << reported;
  EXPECT_TRUE(Files().front().string().ends_with(".damaged"));
  EXPECT_FALSE(OfferOf(*program).isVisible());
  EXPECT_GT(Find<QTableView>(program->window, "list").model()->rowCount(), 0);
}

/// The window of that object name on the screen; nullptr when there is none.
QWidget* WindowNamed(const char* name) {
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->objectName() == QLatin1String(name) && window->isVisible()) return window;
  }
  return nullptr;
}

TEST_F(HostWindowTest, F1_opens_the_manual_at_the_chapter_of_each_window_of_the_host) {
  const auto program = Start();
  test::Open(program->window);
  program->window.Start();
  const auto pageFrom = [](QWidget& widget) {
    QTest::keyClick(&widget, Qt::Key_F1);
    QWidget* const manual = WindowNamed("manual");
    if (manual == nullptr) return std::string("none");
    const QUrl page = manual->findChild<QTextBrowser*>("page")->source();
    manual->close();
    return (page.fileName() + QLatin1Char('#') + page.fragment()).toStdString();
  };
  EXPECT_EQ(pageFrom(Find<QTableView>(program->window, "list")), "start.html#list");
  std::vector<std::string> pages;
  for (const char* command : {"backUp", "aboutProgram"}) {
    test::WhenDialogOpens([&](QWidget& dialog) {
      pages.push_back(pageFrom(dialog));
      dialog.close();
    });
    Find<QAbstractButton>(program->window, command).click();
  }
  Find<QAbstractButton>(program->window, "chooseDatabase").click();
  pages.push_back(pageFrom(Find<QAbstractButton>(program->window, "openFile")));
  test::WhenDialogOpens([&](QWidget& dialog) {
    pages.push_back(pageFrom(dialog));
    dialog.close();
  });
  Find<QAbstractButton>(program->window, "connectServer").click();
  EXPECT_EQ(pages, (std::vector<std::string>{"backup.html#", "log.html#", "databases.html#choose",
                                             "server.html#form"}));
}

TEST_F(HostWindowTest, The_wheel_signs_nobody_else_in) {
  const auto program = Start();
  program->window.ReadDatabase();
  test::Open(program->window);
  auto& users = Find<QComboBox>(program->window, "users");
  const int before = program->window.Control().UserID();
  for (const int turned : {120, -120}) {
    EXPECT_FALSE(test::TurnWheel(users, turned));
    EXPECT_EQ(users.currentData().toInt(), before);
    EXPECT_EQ(program->window.Control().UserID(), before);
  }
}

TEST_F(HostWindowTest, A_counting_is_opened_by_its_number_typed_on_a_persian_keyboard) {
  const auto program = Start();
  program->window.ReadDatabase();
  test::Open(program->window);
  Find<QLineEdit>(program->window, "number").setFocus();
  test::Type(QStringLiteral("۱۷"));
  test::Press(Qt::Key_Return);
  const QWidget* const counting = InvCountingWindow();
  ASSERT_NE(counting, nullptr);
  EXPECT_EQ(counting->findChild<QLineEdit*>(QStringLiteral("txtGNO"))->text(), QStringLiteral("ش-1404/17"));
}

TEST_F(HostWindowTest, A_number_that_no_counting_has_is_answered_with_a_message) {
  const auto program = Start();
  program->window.ReadDatabase();
  test::Open(program->window);
  std::string shown;
  Find<QLineEdit>(program->window, "number").setText(QStringLiteral("99"));
  test::WhenDialogOpens([&](QWidget& dialog) { shown = Acknowledge(dialog); });
  Find<QAbstractButton>(program->window, "open").click();
  EXPECT_EQ(shown, "شمارش بااين شماره موجود نميباشد.");
  EXPECT_EQ(InvCountingWindow(), nullptr);
}

TEST_F(HostWindowTest, Closing_asks_before_a_document_that_is_being_entered_is_lost) {
  const auto program = Start();
  program->window.Control().SetUserID(1);
  program->window.ReadDatabase();
  test::Open(program->window);
  QWidget* const counting = &BeginNew(*program);
  counting->showMinimized();
  program->window.activateWindow();
  test::WhenDialogOpens([counting](QWidget& dialog) {
    EXPECT_EQ(dialog.parentWidget(), counting) << "what is asked about is in front";
    EXPECT_FALSE(counting->isMinimized());
    dialog.findChild<QAbstractButton*>(QStringLiteral("no"))->click();
  });
  EXPECT_FALSE(program->window.close());
  EXPECT_TRUE(counting->isVisible());
  EXPECT_TRUE(program->window.isVisible());

  // Yes gives the document up and leaves the empty form; that one closes without a question.
  test::WhenDialogOpens(
      [](QWidget& dialog) { dialog.findChild<QAbstractButton*>(QStringLiteral("yes"))->click(); });
  EXPECT_FALSE(program->window.close());
  EXPECT_TRUE(program->window.close());
  EXPECT_EQ(InvCountingWindow(), nullptr);
}

TEST(SampleProgressWindowTest, The_sample_is_made_while_its_progress_is_shown_and_never_twice) {
  const TemporaryFolder folder;
  const std::string file = (folder.Path() / "sample.db").string();
  SampleProgressWindow window;
  window.Make(file);
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(window.findChild<QProgressBar*>()->value(), 100);
  EXPECT_GT(std::filesystem::file_size(file), 100000U);
  EXPECT_THROW(window.Make(file), InputError);
}

}  // namespace
}  // namespace koru
