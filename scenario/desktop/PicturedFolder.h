#pragma once

#include <QString>
#include <filesystem>
#include <utility>
#include <vector>

class QLabel;
class QWidget;

namespace koru {

/// While it exists, the labels of a window show `/srv/suite` in place of a folder: that of a scenario has
/// another name in every run, and a picture shows the same each time.
class PicturedFolder {
 public:
  PicturedFolder(const QWidget& window, const std::filesystem::path& folder);
  PicturedFolder(const PicturedFolder&) = delete;
  PicturedFolder& operator=(const PicturedFolder&) = delete;
  ~PicturedFolder();

 private:
  std::vector<std::pair<QLabel*, QString>> before_;  ///< the labels that show it, with their texts
};

}  // namespace koru
