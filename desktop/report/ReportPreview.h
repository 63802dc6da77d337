#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "desktop/report/PageView.h"
#include "siblings/report/ReportDocument.h"

class QLabel;
class QSpinBox;
class QToolButton;
class QHBoxLayout;

namespace koru {

/// The preview window of a report, with printing and saving as PDF.
class ReportPreview : public QWidget {
  Q_OBJECT

 public:
  /// `showFailure` shows an error message to the user.
  ReportPreview(std::unique_ptr<const ReportDocument> report, const QString& title,
                std::function<void(const std::string&)> showFailure, QWidget* parent);

  /// Writes the report to a PDF file, with a progress window that can cancel. False when it was cancelled or
  /// failed; a failure is shown.
  bool SavePdf(const QString& path);
  [[nodiscard]] PageView& View() { return *view_; }
  [[nodiscard]] const ReportDocument& Report() const { return *report_; }

 private:
  void AddTools(QHBoxLayout& tools);
  QToolButton* AddTool(QHBoxLayout& tools, const char* name, const QString& caption, const QKeySequence& key,
                       const std::function<void()>& pressed);
  void ShowPlace();
  void AskPdf();
  void Print();
  /// Runs `work` with a progress window; false when it was cancelled or failed.
  bool WithProgress(const QString& label, const std::function<bool(const ReportProgress&)>& work);

  std::unique_ptr<const ReportDocument> report_;
  QString title_;  ///< the proposed name of a file, with Latin digits
  std::function<void(const std::string&)> showFailure_;
  PageView* view_ = nullptr;
  QSpinBox* page_ = nullptr;
  QLabel* zoom_ = nullptr;
};

}  // namespace koru
