#pragma once

#include <QProgressBar>
#include <QWidget>
#include <string>

namespace koru {

/// Makes the sample database and shows how far it has come. The toolkit runs no input meanwhile.
class SampleProgressWindow : public QWidget {
  Q_OBJECT

 public:
  SampleProgressWindow();

  /// Throws what CreateSample throws; then there is no file.
  void Make(const std::string& file);

 private:
  QProgressBar bar_;
};

}  // namespace koru
