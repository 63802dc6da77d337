#include "adapters/xlsx/XlsxStarter.h"

#include <algorithm>
#include <filesystem>
#include <random>
#include <set>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "adapters/xlsx/WorkbookFile.h"
#include "platform/text/Errors.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

namespace fs = std::filesystem;

constexpr int kMaxRows = 1048576;
constexpr int kMaxColumns = 16384;
constexpr std::size_t kMaxCellLength = 32767;  ///< of a text, in UTF-16 units

fs::path PathOf(const std::string& utf8) { return {std::u8string(utf8.begin(), utf8.end())}; }

std::string TextOf(const fs::path& path) {
  const std::u8string utf8 = path.u8string();
  return {utf8.begin(), utf8.end()};
}

[[noreturn]] void Refuse(const fs::path& path, const std::string& reason) {
  throw InputError("پروندة اكسل نوشته نشد: " + LeftToRight(TextOf(path)) + " (" + reason + ")");
}

/// The file under its temporary name; the destructor removes it.
class TemporaryFile {
 public:
  explicit TemporaryFile(const fs::path& folder)
      : path_(folder / ("koru-" + std::to_string(std::random_device()()) + ".tmp")) {}
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    std::error_code ignored;
    fs::remove(path_, ignored);
  }
  [[nodiscard]] const fs::path& Path() const { return path_; }

 private:
  fs::path path_;
};

/// Renames the finished file unless the target exists, atomically where the file system supports hard links.
/// False: the target exists.
bool RenameUnlessExists(const fs::path& working, const fs::path& target) {
  std::error_code error;
  if (fs::exists(fs::symlink_status(target, error))) return false;
  fs::create_hard_link(working, target, error);
  if (!error) return true;
  if (error == std::errc::file_exists) return false;
  fs::rename(working, target, error);
  if (error) Refuse(target, error.message());
  return true;
}

class XlsxWorkbook : public Spreadsheet {
 public:
  XlsxWorkbook(const XlsxPlace& place, Date today) : place_(place), date_(SolarText(today)) {
    std::replace(date_.begin(), date_.end(), '/', '-');
  }

  void SetCell(int row, int col, std::string_view text) override {
    if (row < 1 || row > kMaxRows || col < 1 || col > kMaxColumns) {
      throw std::out_of_range("no such cell in a workbook");
    }
    const auto r = static_cast<std::size_t>(row - 1);
    const auto c = static_cast<std::size_t>(col - 1);
    if (r >= texts_.size()) texts_.resize(r + 1);
    if (c >= texts_[r].size()) texts_[r].resize(c + 1);
    texts_[r][c] = Utf16Prefix(text, kMaxCellLength);
    if (texts_[r][c].size() < text.size()) {
      cut_.insert({row, col});
    } else if (!cut_.empty()) {
      cut_.erase({row, col});
    }
  }

  void MarkAsUnsaved() override { title_ = "شمارش ذخيره نشده"; }

  void LeaveOpen() override {
    file_ = TextOf(Write());
    ReportCutTexts();
    if (place_.open && place_.open(file_)) return;
    if (place_.showMessage)
      place_.showMessage("پروندة اكسل ساخته شد، ولي برنامه اي آن را باز نكرد: " + LeftToRight(file_));
  }

  [[nodiscard]] std::string File() const override { return file_; }

 private:
  void ReportCutTexts() const {
    if (cut_.empty() || !place_.showMessage) return;
    const auto& [row, col] = *cut_.begin();
    place_.showMessage("متن " + std::to_string(cut_.size()) + " خانه بلندتر از " +
                       std::to_string(kMaxCellLength) + " نويسه بود و بريده شد؛ نخستين آنها در سطر " +
                       std::to_string(row) + " و ستون " + std::to_string(col) + " است.");
  }

  [[nodiscard]] fs::path Write() const {
    const fs::path folder = PathOf(place_.folder);
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) Refuse(folder, error.message());
    const TemporaryFile working(folder);
    int number = 1;
    while (fs::exists(fs::symlink_status(folder / PathOf(Name(number)), error))) ++number;
    const std::string reason = WriteWorkbook(TextOf(working.Path()), title_, texts_);
    if (!reason.empty()) Refuse(folder / PathOf(Name(number)), reason);
    while (!RenameUnlessExists(working.Path(), folder / PathOf(Name(number)))) ++number;
    return folder / PathOf(Name(number));
  }

  [[nodiscard]] std::string Name(int number) const {
    return title_ + "-" + date_ + "-" + std::to_string(number) + ".xlsx";
  }

  const XlsxPlace place_;
  std::string date_;
  std::string title_ = "شمارش";  ///< of the file and the sheet
  std::string file_;             ///< set by LeaveOpen
  SheetTexts texts_;
  std::set<std::pair<int, int>> cut_;  ///< row and column of the cells whose texts were cut
};

}  // namespace

std::unique_ptr<Spreadsheet> XlsxStarter::NewWorkbook() {
  return std::make_unique<XlsxWorkbook>(place_, clock_.Today());
}

}  // namespace koru
