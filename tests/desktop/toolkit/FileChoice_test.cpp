#include "desktop/toolkit/FileChoice.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QAbstractItemModel>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <fstream>

#include "desktop/toolkit/QtText.h"
#include "tests/desktop/WindowTools.h"
#include "tests/support/TestFile.h"

namespace koru {
namespace {

/// Whether another program finds locks of this one on the file. A program's own locks do not show to itself.
bool IsLockedForOthers(const std::string& file) {
  const pid_t other = fork();
  if (other == 0) {
    struct flock asked {};
    asked.l_type = F_WRLCK;
    asked.l_whence = SEEK_SET;
    const int opened = open(file.c_str(), O_RDWR);
    if (opened < 0 || fcntl(opened, F_GETLK, &asked) != 0) _exit(2);
    _exit(asked.l_type == F_UNLCK ? 0 : 1);
  }
  int status = 0;
  EXPECT_EQ(waitpid(other, &status, 0), other);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) != 2) << file;
  return WEXITSTATUS(status) == 1;
}

/// A folder with an open database in it, which is also where the program was started.
class ChoosingAFile : public testing::Test {
 protected:
  ChoosingAFile() {
    database_.Execute("insert into tblUser (FullName) values ('x')");
    QDir::setCurrent(Folder());
  }
  ~ChoosingAFile() override { QDir::setCurrent(before_); }

  [[nodiscard]] QString Folder() const { return ToQt(database_.Folder().Path().string()); }
  [[nodiscard]] QString Path(const char* name) const { return ToQt(database_.Folder().File(name)); }
  [[nodiscard]] FileQuestion Question(const QString& start) const {
    return {QStringLiteral("عنوان"), start, QStringLiteral("PDF (*.pdf);;همه (*)")};
  }
  void Put(const char* name) const { std::ofstream(database_.Folder().File(name)) << "mine"; }

  /// The type that the dialog has found for the database, which it does in its own time.
  static bool WaitForTypeOf(const QFileDialog& dialog, const QString& file) {
    const auto* const model = dialog.findChild<QFileSystemModel*>();
    constexpr int kType = 2;
    return QTest::qWaitFor([&] {
      const QModelIndex type = model->index(file, kType);
      return type.isValid() && !type.data().toString().isEmpty();
    });
  }
  /// Names a file and presses the button that takes it.
  static void Take(QFileDialog& dialog, const QString& name) {
    dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(name);
    const auto* const buttons = dialog.findChild<QDialogButtonBox*>();
    const bool saves = dialog.acceptMode() == QFileDialog::AcceptSave;
    buttons->button(saves ? QDialogButtonBox::Save : QDialogButtonBox::Open)->click();
  }
  /// Runs `answer` with the file dialog that opens next.
  static void WhenFilesAreAsked(std::function<void(QFileDialog&)> answer) {
    test::WhenDialogOpens([answer = std::move(answer)](QWidget& dialog) {
      auto* const files = qobject_cast<QFileDialog*>(&dialog);
      ASSERT_NE(files, nullptr);
      answer(*files);
    });
  }
  /// Answers the question that opens next.
  static void AnswerQuestion(QMessageBox::StandardButton answer) {
    test::WhenDialogOpens([answer](QWidget& dialog) {
      auto* const question = qobject_cast<QMessageBox*>(&dialog);
      ASSERT_NE(question, nullptr);
      question->button(answer)->click();
    });
  }

  void ExpectLocked(const char* when) const {
    for (const char* part : {"", "-shm"}) {
      EXPECT_TRUE(IsLockedForOthers(database_.File() + part)) << when << ": " << part;
    }
  }

  const QString before_ = QDir::currentPath();
  test::TestFile database_;
};

TEST_F(ChoosingAFile, The_open_database_keeps_its_locks_while_its_folder_is_listed) {
  ExpectLocked("before");
  for (const bool saving : {true, false}) {
    WhenFilesAreAsked([&](QFileDialog& dialog) {
      EXPECT_TRUE(WaitForTypeOf(dialog, ToQt(database_.File())));
      ExpectLocked("while files are listed");
      dialog.reject();
    });
    const FileQuestion question = Question(saving ? Path("a.pdf") : Folder());
    EXPECT_EQ(
        saving ? AskWhereToSave(question, QStringLiteral("pdf"), nullptr) : AskForFile(question, nullptr),
        QString());
    ExpectLocked("after");
  }
}

TEST_F(ChoosingAFile, The_dialog_is_right_to_left_and_begins_in_the_given_place) {
  WhenFilesAreAsked([&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("عنوان"));
    EXPECT_EQ(dialog.layoutDirection(), Qt::RightToLeft);
    EXPECT_EQ(dialog.directory().path(), Folder());
    EXPECT_EQ(dialog.nameFilters().size(), 2);
    EXPECT_EQ(dialog.selectedFiles(), QStringList(Path("گزارش.pdf")));
    dialog.reject();
  });
  (void)AskWhereToSave(Question(Path("گزارش.pdf")), QStringLiteral("pdf"), nullptr);
}

TEST_F(ChoosingAFile, An_existing_file_is_accepted) {
  WhenFilesAreAsked([](QFileDialog& dialog) { Take(dialog, QStringLiteral("test.koru")); });
  EXPECT_EQ(AskForFile(Question(Folder()), nullptr), ToQt(database_.File()));
}

TEST_F(ChoosingAFile, A_name_to_save_under_gets_its_ending) {
  WhenFilesAreAsked([](QFileDialog& dialog) { Take(dialog, QStringLiteral("a")); });
  EXPECT_EQ(AskWhereToSave(Question(Folder()), QStringLiteral("pdf"), nullptr), Path("a.pdf"));
  WhenFilesAreAsked([](QFileDialog& dialog) { Take(dialog, QStringLiteral("of 1404.12")); });
  EXPECT_EQ(AskWhereToSave(Question(Folder()), QStringLiteral("pdf"), nullptr), Path("of 1404.12.pdf"));
}

TEST_F(ChoosingAFile, A_file_is_replaced_only_with_a_yes_also_when_only_its_ending_makes_the_name) {
  Put("a.pdf");
  for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
    WhenFilesAreAsked([&](QFileDialog& dialog) {
      AnswerQuestion(answer);
      Take(dialog, QStringLiteral("a"));
      EXPECT_EQ(dialog.isVisible(), answer == QMessageBox::No);
      dialog.close();
    });
    EXPECT_EQ(AskWhereToSave(Question(Folder()), QStringLiteral("pdf"), nullptr),
              answer == QMessageBox::Yes ? Path("a.pdf") : QString());
  }

  Put("of 1404.12.pdf");
  WhenFilesAreAsked([&](QFileDialog& dialog) {
    WhenFilesAreAsked([&](QFileDialog& again) {
      AnswerQuestion(QMessageBox::No);
      EXPECT_EQ(again.selectedFiles(), QStringList(Path("of 1404.12.pdf")));
      Take(again, QStringLiteral("of 1404.12.pdf"));
      again.reject();
    });
    Take(dialog, QStringLiteral("of 1404.12"));
  });
  EXPECT_EQ(AskWhereToSave(Question(Folder()), QStringLiteral("pdf"), nullptr), QString());
}

}  // namespace
}  // namespace koru
