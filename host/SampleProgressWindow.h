#pragma once

#include <QProgressBar>
#include <QWidget>
#include <string>

namespace koru {

/// Makes the sample database and shows the progress. Input waits until it is made.
class SampleProgressWindow : public QWidget {
  Q_OBJECT

 public:
  SampleProgressWindow();

  /// Throws what CreateSample throws, after which no file exists.
  void Make(const std::string& file);

 private:
  QProgressBar bar_;
};

}  // namespace koru
