#pragma once

#include "platform/controls/DateBox.h"
#include "platform/controls/Form.h"
#include "platform/controls/Grid.h"
#include "platform/controls/Label.h"
#include "platform/controls/ProgressBar.h"
#include "platform/controls/Selector.h"
#include "platform/controls/TextBox.h"
#include "platform/text/Numbers.h"

namespace koru {

/// The controls of the counting form that saving, registering and returning a counting read and write. They
/// belong to the form, which must outlive the operations.
struct CountingControls {
  Form& form;        ///< for its title
  Label& lblIDVal;   ///< the counting's key; empty on a counting that was never saved
  TextBox& txtCode;  ///< the final number; empty while the counting is temporary
  TextBox& txtGNO;   ///< the manual number
  TextBox& txtNotes;
  DateBox& gdpReceiveDate;
  DateBox& gdpFromDate;
  DateBox& gdpToDate;
  Selector& mptCounter1;
  Selector& mptCounter2;
  Selector& mptCounter3;
  Selector& mptConfirmer;
  Selector& gmpInventory;
  Grid& flexDetail;
  ProgressBar& pgbStatus;  ///< shown while lines are written, one step a line

  /// The counting's key as the statements write it; 0 on a counting that was never saved.
  [[nodiscard]] double CountingID() const { return Val(lblIDVal.Caption()); }
};

}  // namespace koru
