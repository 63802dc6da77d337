#pragma once

#include "lines/LineColumns.h"
#include "lines/LineEditing.h"
#include "lines/SystemQuantity.h"
#include "tests/support/BareCountingForm.h"

namespace koru {

/// A counting form with the operations of its lines. The document is open for editing, and the grid is set up
/// and has no lines.
class LineForm : public test::BareCountingForm {
 public:
  explicit LineForm(SharedState& shared)
      : BareCountingForm(shared.services.screen),
        lines(*this, shared),
        editing(*this, shared, lines),
        quantity(*this, shared, lines, editing) {
    shared.DocMode = DocumentMode::Editing;
    lines.SetUp();
  }

  /// Appends a line; returns its row.
  int AddLine(std::string_view barcode) {
    flexDetail.AddItem({});
    const int row = flexDetail.Rows() - 1;
    Set(row, LineColumn::Barcode, barcode);
    return row;
  }

  CountingLines lines;
  LineEditing editing;
  SystemQuantity quantity;
};

}  // namespace koru
