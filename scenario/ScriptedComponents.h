#pragma once

#include "desktop/documents/StockDocumentDialog.h"
#include "desktop/report/DesktopReportPrinter.h"
#include "desktop/search/GoodsPickerDialog.h"
#include "scenario/UiDriver.h"

namespace koru {

// The suite's components without their windows: a person does at once what they would do in the window.

/// The message component: the person answers.
class ScriptedMessage : public MessageComponent {
 public:
  /// `person` must outlive it.
  explicit ScriptedMessage(ScenarioUser& user) : user_(user) {}

  void SetFormTitle(const std::string& title) override { message_.title = title; }
  void SetFormMessage(const std::string& message) override { message_.text = message; }
  void SetFormType(int type) override { message_.type = type; }
  void SetFormBackColor(std::uint32_t) override {}
  void SetBtmBackColor(std::uint32_t) override {}
  void SetFrameBackColor(std::uint32_t) override {}
  void ClearShow() override { result_ = static_cast<int>(user_.AnswerMessage(message_)); }
  [[nodiscard]] int Resualt() const override { return result_; }

 private:
  ScenarioUser& user_;
  ShownMessage message_;
  int result_ = static_cast<int>(Answer::Closed);
};

/// The goods picker: the person picks among the goods that it offers.
class ScriptedPicker : public GoodsPickerDialog {
 public:
  /// Both must outlive it.
  ScriptedPicker(DatabaseConnector& databases, ScenarioUser& user)
      : GoodsPickerDialog(databases), user_(user) {}

 protected:
  std::optional<std::vector<PickedGood>> LetPick(GoodsFinder& finder, std::int32_t store,
                                                 std::optional<std::vector<PickedGood>> basket) override;

 private:
  ScenarioUser& user_;
};

/// A receipt or dispatch: the person reads it, and perhaps registers it.
class ScriptedDocument : public StockDocumentDialog {
 public:
  /// All four must outlive it; see StockDocumentDialog.
  ScriptedDocument(const DocumentKind& kind, DatabaseConnector& databases,
                   const ComponentRegistry& components, ScenarioUser& user)
      : StockDocumentDialog(kind, databases, components), user_(user) {}

 protected:
  void LetUse(Database& database, const DocumentKind& kind, const Messages& messages,
              StockDocument document) override;

 private:
  ScenarioUser& user_;
};

/// The report printer: reads, asks and lays out as on the desktop, and puts the report before the person
/// without painting it.
class ScriptedPrinter : public DesktopReportPrinter {
 public:
  /// Both must outlive it. `before` is the report that the person looks at.
  ScriptedPrinter(DatabaseConnector& databases, std::unique_ptr<const ReportDocument>& before)
      : DesktopReportPrinter(databases, {}), before_(before) {}

 protected:
  void LetRead(std::unique_ptr<const ReportDocument> report) override { before_ = std::move(report); }

 private:
  std::unique_ptr<const ReportDocument>& before_;
};

}  // namespace koru
