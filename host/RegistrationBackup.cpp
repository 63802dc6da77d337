#include "host/RegistrationBackup.h"

#include <QApplication>

#include "host/BackupProgressDialog.h"
#include "host/Backups.h"
#include "host/HostSession.h"
#include "services/Messages.h"

namespace koru {

bool BackUpBeforeRegistration(HostSession& session, const std::string& connection) {
  const auto database = EmbeddedFileOf(connection);
  if (!database || !session.Settings().BacksUpBeforeRegistration()) return true;
  std::string sentence = "پشتيبان خودكار لغو شد.";
  try {
    BackupProgressDialog dialog(QApplication::activeWindow());
    if (dialog.Run(*database, AutomaticBackup(*database, BackupProgressDialog::Now())) ==
        BackupOutcome::Done) {
      RemoveOldBackups(*database);
      return true;
    }
  } catch (const std::exception& failure) {
    sentence = failure.what();
  }
  return session.AskQuestion(sentences::kWarning, "ثبت نهايي بدون پشتيبان انجام شود؟\n" + sentence) ==
         kAnswerYes;
}

}  // namespace koru
