#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "lines/CountImport.h"
#include "platform/controls/Button.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/Form.h"
#include "platform/controls/Label.h"
#include "services/SharedState.h"

namespace koru {

/// The columns of the preview.
namespace ImportColumn {
enum : int { FileRow = 0, Key = 1, GoodName = 2, Count = 3, Text = 4, Before = 5, After = 6, State = 7 };
}  // namespace ImportColumn

/// The modal preview of counts from a file, made anew for each file: which columns are read, what comes in
/// and what does not. Each choice shows another preview; nothing is entered. Closing the window imports
/// nothing.
class frmCountImport : public Form {
 public:
  /// Reads another sheet of the file; nothing if the user cancels.
  using ReadSheet = std::function<std::optional<FileTable>(std::size_t sheet)>;

  /// Backgrounds of the preview, 0x00BBGGRR.
  static constexpr std::uint32_t kProblemColor = 0x00D6E4FD;
  static constexpr std::uint32_t kComesInColor = 0x00FFFFFF;

  /// `shared` and `lines` must outlive the form. `file` is shown to the user.
  frmCountImport(SharedState& shared, const Grid& lines, const std::string& file, FileTable table,
                 ReadSheet read);

  /// What comes in; nothing if the user has cancelled.
  [[nodiscard]] const std::optional<std::vector<ImportedFigure>>& Accepted() const { return accepted_; }

  Label lblFile{*this, "lblFile"};
  ComboBox cmbSheet{*this, "cmbSheet"};  ///< visible for a workbook of several sheets
  ComboBox cmbBarcode{*this, "cmbBarcode"};
  ComboBox cmbCode{*this, "cmbCode"};
  ComboBox cmbFirst{*this, "cmbFirst"};
  ComboBox cmbSecond{*this, "cmbSecond"};
  ComboBox cmbThird{*this, "cmbThird"};
  ComboBox cmbAccepted{*this, "cmbAccepted"};
  ComboBox cmbRepeated{*this, "cmbRepeated"};
  ComboBox cmbCounted{*this, "cmbCounted"};
  Label lblSummary{*this, "lblSummary"};
  Grid flexPreview{*this, "flexPreview"};  ///< problems first; see ImportColumn
  Button cmdImport{*this, "cmdImport"};    ///< enabled while something comes in
  Button cmdExit{*this, "cmdExit"};

  void UserClose() override { Unload(); }

 private:
  void SetUp();
  void OfferColumns();
  void ChooseColumns();
  void ReadOtherSheet();
  void ShowPlan();
  void AddPlanned(const ImportedFigure& figure);
  [[nodiscard]] std::string Summary() const;
  [[nodiscard]] std::string WhyEmpty() const;

  SharedState& shared_;
  const Grid& lines_;
  FileTable table_;
  ReadSheet read_;
  ImportColumns columns_;
  std::array<ComboBox*, kImportedCounts> counts_{&cmbFirst, &cmbSecond, &cmbThird, &cmbAccepted};
  std::vector<ImportedFigure> plan_;
  std::optional<std::vector<ImportedFigure>> accepted_;
};

}  // namespace koru
