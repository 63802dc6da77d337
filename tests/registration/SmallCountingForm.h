#pragma once

#include "lines/LineColumns.h"
#include "registration/CountingControls.h"

namespace koru {

/// A form with no more than the controls that saving, registering and returning a counting use.
class SmallCountingForm : public Form {
 public:
  explicit SmallCountingForm(Screen& screen) : Form(screen, "frmSmallCounting") {
    flexDetail.SetCols(kLineColumns);
    pgbStatus.SetVisible(false);
  }

  [[nodiscard]] CountingControls Controls() {
    return {.form = *this,
            .lblIDVal = lblIDVal,
            .txtCode = txtCode,
            .txtGNO = txtGNO,
            .txtNotes = txtNotes,
            .gdpReceiveDate = gdpReceiveDate,
            .gdpFromDate = gdpFromDate,
            .gdpToDate = gdpToDate,
            .mptCounter1 = mptCounter1,
            .mptCounter2 = mptCounter2,
            .mptCounter3 = mptCounter3,
            .mptConfirmer = mptConfirmer,
            .gmpInventory = gmpInventory,
            .flexDetail = flexDetail,
            .pgbStatus = pgbStatus};
  }

  Label lblIDVal{*this, "lblIDVal"};
  TextBox txtCode{*this, "txtCode"};
  TextBox txtGNO{*this, "txtGNO"};
  TextBox txtNotes{*this, "txtNotes"};
  DateBox gdpReceiveDate{*this, "gdpReceiveDate"};
  DateBox gdpFromDate{*this, "gdpFromDate"};
  DateBox gdpToDate{*this, "gdpToDate"};
  PersonSelector mptCounter1{*this, "mptCounter1"};
  PersonSelector mptCounter2{*this, "mptCounter2"};
  PersonSelector mptCounter3{*this, "mptCounter3"};
  PersonSelector mptConfirmer{*this, "mptConfirmer"};
  TreeSelector gmpInventory{*this, "gmpInventory"};
  Grid flexDetail{*this, "flexDetail"};
  ProgressBar pgbStatus{*this, "pgbStatus"};
};

}  // namespace koru
