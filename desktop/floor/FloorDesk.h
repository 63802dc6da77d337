#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "desktop/floor/FloorLog.h"
#include "desktop/floor/UnsavedFigures.h"
#include "desktop/floor/server/FloorServer.h"
#include "desktop/floor/server/MachineAddresses.h"
#include "floor/FloorSession.h"
#include "platform/ports/FloorJournal.h"

class QAction;

namespace koru {

class FloorBar;
class FloorDialog;
class frmInvCounting;
class InvCountingWindow;
enum class WantedSave;

/// Counting on the floor at the desk, for one counting window: its command, the bar that says that the floor
/// is open, and the dialog. It opens and closes the floor: the journal, the session on it and the server that
/// serves the session, which end in the opposite order, the latest when the form is unloaded.
///
/// Nothing listens before the user has opened the floor. A temporary save leaves it open and paused; a
/// registration, Cancel, another counting and the end of the form close it.
///
/// When a counting is opened for changes whose journal has figures that it lacks, they are offered. Until the
/// entry ends, a session follows it then, without a server.
class FloorDesk : public QObject {
  Q_OBJECT

 public:
  /// Adds the command and the bar to the window, which owns the object. `journals` must outlive the window.
  /// `addresses` gives the names and addresses of the machine at that moment, the likeliest first: they are
  /// asked for when the floor is opened, and once a second while it is open.
  FloorDesk(InvCountingWindow& window, frmInvCounting& form, FloorJournalStore& journals,
            FloorServerSettings server,
            std::function<std::vector<std::string>()> addresses = MachineAddresses);
  ~FloorDesk() override;

  /// The command: opens the floor, after questions where the counting is not being changed, and shows the
  /// dialog.
  void Open();
  /// Closes the floor after a question.
  void Stop();
  /// Asks, then gives a count another code.
  void RenewCode(int count);
  /// Adds a line for the good with a barcode that was scanned on the floor, by the form's own command.
  void AddUnknown(const std::string& barcode);
  /// Shows the left figures with the choice to take or to forgo them. False when there are none.
  bool OfferLeft();
  /// The figures that a Cancel or a refusal has set aside become left ones, which are offered.
  void TakeBackSetAside();
  /// Serves https, too. Throws InputError.
  void OpenSecure();

  /// Whether devices can reach the counting, now or after a pause.
  [[nodiscard]] bool IsServed() const { return server_ != nullptr; }
  /// nullptr unless the counting is followed.
  [[nodiscard]] FloorSession* Session() const { return session_.get(); }
  [[nodiscard]] const FloorServer* Server() const { return server_.get(); }
  [[nodiscard]] FloorLog& Log() { return log_; }
  [[nodiscard]] frmInvCounting& Counting() const { return form_; }
  [[nodiscard]] InvCountingWindow& Window() const { return window_; }
  [[nodiscard]] FloorDialog* Dialog() const;
  /// A sentence about the floor: whether it is open, how many devices take part, how many figures have come;
  /// or how many are left, and that the devices wait for the decision.
  [[nodiscard]] QString Summary() const;
  /// The name of the counter of a count as the form shows it; empty when none is chosen.
  [[nodiscard]] QString CounterOf(int count) const;
  /// The last thing to say about the journal; empty while it can be written.
  [[nodiscard]] const QString& JournalFailure() const { return journalFailure_; }
  /// Whether who is at the desk may not see the figures of that count.
  [[nodiscard]] bool Hides(int count) const;

  /// Shows what has come since the last time, and where devices reach the machine now: what the timers do.
  void Refresh();

 signals:
  /// Something that is shown about the floor may be another.
  void changed();
  /// The floor has been closed.
  void closed();
  /// What became of a command, in a sentence.
  void said(const QString& sentence);

 private:
  void AddCommand();
  void FollowForm();
  void ShowCommand();
  [[nodiscard]] bool MakeReady();
  [[nodiscard]] FloorJournalOwner Owner() const;
  void Begin();
  void ConnectSession();
  void Serve();
  void FollowAddresses();
  void FollowLater();
  void Follow();
  bool OfferAtEdit();
  void ShowDamage();
  void Close();
  void End(FloorSession::End end);
  void Arrived(const FloorArrival& arrival);
  void JournalFailed(const std::string& sentence);
  void ShowFailure(const std::string& sentence);
  void LeaveDialog();
  [[nodiscard]] bool KeepsEntry() const;
  [[nodiscard]] bool KeepsUnsaved(WantedSave wanted);
  void Forgo();
  void Replay();
  void ShowNotEntered(const ReplayedFigures& replayed, bool wereAside);
  void Say(const QString& sentence);
  [[nodiscard]] QString NameIn(const Control& selector) const;
  [[nodiscard]] bool Asks(const std::string& question) const;

  InvCountingWindow& window_;
  frmInvCounting& form_;
  FloorJournalStore& journals_;
  FloorServerSettings settings_;
  std::function<std::vector<std::string>()> addresses_;
  GoodNames names_;
  FloorLog log_;
  std::int32_t countingOfLog_ = 0;  ///< the ID
  QAction* command_ = nullptr;
  QTimer follow_;            ///< runs once after something has changed
  QTimer refresh_;           ///< while the floor is open: last contacts and figures
  bool isUnloaded_ = false;  ///< the form must not be used any more
  bool isOffered_ = false;   ///< the left figures of this entry have been offered
  QString journalFailure_;
  std::unique_ptr<FloorJournal> journal_;
  std::unique_ptr<FloorSession> session_;
  std::optional<UnsavedFigures> unsaved_;  ///< while there is a session
  std::unique_ptr<FloorServer> server_;
  QPointer<FloorBar> bar_;  // of the window, as the dialog is: both use the desk
  QPointer<FloorDialog> dialog_;
  std::vector<Subscription> ofForm_;
  std::vector<Subscription> ofSession_;
};

}  // namespace koru
