#pragma once

#include "desktop/forms/FormWindow.h"

namespace koru {

class frmReport;

/// The window of the report chooser: the list of reports and two buttons. Enter accepts the selected report,
/// Escape cancels.
class ReportWindow : public FormWindow {
  Q_OBJECT

 public:
  explicit ReportWindow(frmReport& form);
};

}  // namespace koru
