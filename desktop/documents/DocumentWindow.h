#pragma once

#include <QDialog>

#include "services/Messages.h"
#include "siblings/documents/StockDocument.h"

class QBoxLayout;
class QGridLayout;
class QLabel;
class QPushButton;

namespace koru {

/// Shows a receipt or dispatch and registers it as final after a confirmation. A database error is shown and
/// leaves the window unchanged.
class DocumentWindow : public QDialog {
  Q_OBJECT

 public:
  /// `database`, `kind` and `messages` must outlive the window.
  DocumentWindow(Database& database, const DocumentKind& kind, const Messages& messages,
                 StockDocument document, QWidget* parent);

 private:
  void AddHeader(QBoxLayout& window);
  void AddLines(QBoxLayout& window);
  void AddTotals(QBoxLayout& window);
  void AddCommands(QBoxLayout& window);
  QLabel* NewValue(const char* objectName);
  QLabel* AddValue(QGridLayout& box, int row, int column, const char* name, const char* objectName,
                   int columns = 1);
  void ShowState();
  void Register();

  Database& database_;
  const DocumentKind& kind_;
  const Messages& messages_;
  StockDocument document_;
  QLabel* code_ = nullptr;
  QPushButton* register_ = nullptr;
};

}  // namespace koru
