#include "reports/BuiltInReports.h"

#include <filesystem>
#include <fstream>
#include <system_error>

#include "platform/Errors.h"

namespace koru {
namespace {

namespace fs = std::filesystem;

fs::path PathOf(std::string_view utf8) { return {std::u8string(utf8.begin(), utf8.end())}; }

void WriteFile(const fs::path& path, std::string_view text) {
  std::error_code ignored;
  fs::create_directories(path.parent_path(), ignored);
  std::ofstream file(path, std::ios::binary);
  file.write(text.data(), static_cast<std::streamsize>(text.size()));
  file.close();
  if (file) return;
  fs::remove(path, ignored);
  const std::u8string name = path.u8string();
  throw InputError("پروندة گزارش نوشته نشد: " + std::string(name.begin(), name.end()));
}

}  // namespace

void WriteBuiltInReports(const std::string& baseFolder) {
  for (const BuiltInReport& report : BuiltInReports()) {
    const fs::path path = PathOf(baseFolder) / PathOf(report.path);
    std::error_code ignored;
    if (!fs::exists(path, ignored)) WriteFile(path, report.text);
  }
}

}  // namespace koru
