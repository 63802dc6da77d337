#pragma once

#include <QObject>
#include <QPointer>
#include <filesystem>
#include <functional>
#include <string>

namespace koru {

class ManualWindow;

/// Opens the manual on F1 in any window, at the chapter about that window. In a message, the manual scrolls
/// to the message where the page has it. A window that uses F1 itself keeps it: in the goods search, F1 opens
/// the form's menu, and F1 in the menu opens the manual.
///
/// There is one window of the manual at a time. It belongs to the dialog in front, if there is one, and is
/// closed with it.
class Manual : public QObject {
  Q_OBJECT

 public:
  /// `folder` has the pages. `showFailure` shows a sentence to the user. Needs the application object.
  Manual(const std::filesystem::path& folder, std::function<void(const std::string&)> showFailure);
  ~Manual() override;

  /// Shows a page (`page.html` or `page.html#anchor`), or reports that it does not exist.
  void Open(const QString& page);

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void OpenFor(const QWidget& widget, const QString& page);

  QString folder_;
  std::function<void(const std::string&)> showFailure_;
  QPointer<ManualWindow> window_;
};

}  // namespace koru
