#pragma once

#include <QEvent>
#include <QObject>
#include <QPointer>
#include <memory>
#include <vector>

class QAbstractButton;

namespace koru {

/// The user's input while a command runs that can be cancelled. Escape in any window presses the button that
/// cancels, and the mouse reaches that button. All other input waits, in its order, until the command has
/// ended: half of a scanned barcode must not be lost.
class WaitingInput : public QObject {
  Q_OBJECT

 public:
  /// `cancel` must outlive the object.
  explicit WaitingInput(QAbstractButton& cancel);

  /// Handles all events. Called by the command from time to time.
  void Process();
  /// Called at the end of the command: when control returns to the event loop, the input that waits is
  /// delivered; after a cancelled command, or when a dialog is open by then, it is dropped.
  void End();

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  struct Waiting {
    QPointer<QObject> receiver;
    std::unique_ptr<QEvent> event;
  };

  [[nodiscard]] bool IsForCancel(const QObject* receiver, const QEvent& event) const;
  void Deliver();

  QAbstractButton& cancel_;
  std::vector<Waiting> waiting_;
  bool cancelled_ = false;
};

}  // namespace koru
