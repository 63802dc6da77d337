#pragma once

#include <QDialog>

namespace koru {

class HostSession;

/// The version of the program, and the paths that a support person asks for.
class AboutDialog : public QDialog {
  Q_OBJECT

 public:
  AboutDialog(const HostSession& session, QWidget* parent);
};

}  // namespace koru
