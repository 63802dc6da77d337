#pragma once

#include "desktop/forms/FormWindow.h"

namespace koru {

class frmReport;

/// The window of the report chooser: the templates and the two buttons. Enter takes the chosen template,
/// Escape none.
class ReportWindow : public FormWindow {
  Q_OBJECT

 public:
  explicit ReportWindow(frmReport& form);
};

}  // namespace koru
