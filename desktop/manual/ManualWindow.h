#pragma once

#include <QTextBrowser>
#include <QWidget>
#include <functional>
#include <string>

class QBoxLayout;
class QKeySequence;
class QLineEdit;
class QToolButton;

namespace koru {

/// A page of the manual. Pictures are scaled to the width of the view.
class ManualPage : public QTextBrowser {
  Q_OBJECT

 public:
  explicit ManualPage(QWidget* parent);

 protected:
  QVariant loadResource(int type, const QUrl& name) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  int scaledTo_ = 0;  ///< the width of the view that the pictures were scaled to
};

/// The window of the manual: its pages, a line for searching in a page, and buttons for the contents, the
/// page before, the sheet of keys, the browser of the user, printing and saving as PDF.
class ManualWindow : public QWidget {
  Q_OBJECT

 public:
  /// `folder` has the pages. The window is a child of `parent`, so that it can be used while `parent` is
  /// modal. `showFailure` shows a sentence to the user.
  ManualWindow(const QString& folder, std::function<void(const std::string&)> showFailure, QWidget* parent);

  /// Shows a page (`page.html` or `page.html#anchor`).
  void Show(const QString& page);
  /// Scrolls to the first place of that text on the page and selects it; does nothing when it has none.
  void Find(const QString& text);

 private:
  void AddTools(QBoxLayout& window);
  QToolButton* AddTool(QBoxLayout& tools, const char* name, const QString& caption, const QKeySequence& key);
  void FindNext();
  void Print();
  void AskPdf();

  QString folder_;
  std::function<void(const std::string&)> showFailure_;
  ManualPage* page_ = nullptr;
  QLineEdit* searched_ = nullptr;
};

}  // namespace koru
