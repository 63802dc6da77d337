#pragma once

#include "desktop/FormWindow.h"

namespace koru {

class frmReport;

/// The window of the report chooser: the templates and the two buttons. Enter takes the chosen template,
/// Escape none.
class ReportChooserWindow : public FormWindow {
  Q_OBJECT

 public:
  explicit ReportChooserWindow(frmReport& form);
};

}  // namespace koru
