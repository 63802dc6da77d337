#include "siblings/report/ReportFile.h"

#include <cerrno>
#include <fstream>
#include <iterator>
#include <string_view>
#include <system_error>

#include "platform/text/FilePath.h"
#include "platform/text/Text.h"
#include "reports/BuiltInReports.h"
#include "siblings/report/ReportTemplate.h"

namespace koru {
namespace {

using Path = std::filesystem::path;

[[noreturn]] void RefuseUnread(const std::string& name, std::error_code error) {
  RefuseReport(name, 0, "پرونده خوانده نشد (" + error.message() + ")");
}

std::string ReadWhole(const Path& path, const std::string& name) {
  std::error_code unknown;
  if (std::filesystem::is_directory(path, unknown))
    RefuseUnread(name, std::make_error_code(std::errc::is_a_directory));
  errno = 0;
  std::ifstream file(path, std::ios::binary);
  std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (!file.is_open() || file.bad()) RefuseUnread(name, {errno, std::generic_category()});
  return text;
}

/// The outermost folder of `path` that does not exist; empty if all exist.
Path MissingFolder(const Path& path) {
  Path missing;
  std::error_code unknown;
  for (Path folder = path.parent_path(); !folder.empty() && folder != folder.root_path();
       folder = folder.parent_path()) {
    if (std::filesystem::exists(folder, unknown)) break;
    missing = folder;
  }
  return missing;
}

[[noreturn]] void RefuseMissing(const std::string& name) {
  const Path folder = PathOf(name).is_absolute() ? MissingFolder(PathOf(name)) : Path();
  if (folder.empty()) RefuseReport(name, 0, "چنين پرونده اي نيست");
  RefuseReport(name, 0, "پوشة " + LeftToRight(TextOf(folder)) + " نيست");
}

/// `path` relative to `folder`; empty if it is not below it.
Path Below(const Path& folder, const Path& path) {
  const Path relative = path.lexically_normal().lexically_relative(folder.lexically_normal());
  return relative.empty() || *relative.begin() == ".." ? Path() : relative;
}

}  // namespace

std::string ReadReportFile(const std::string& name, const Path& dataFolder) {
  const Path path = PathOf(name);
  std::error_code unknown;
  if (std::filesystem::exists(path, unknown)) return ReadWhole(path, name);
  const Path own = path.is_absolute() ? Below(dataFolder, path) : path;
  if (own.empty()) RefuseMissing(name);
  if (std::filesystem::exists(dataFolder / own, unknown)) return ReadWhole(dataFolder / own, name);
  const std::string_view builtIn = FindBuiltInReport(TextOf(own.generic_u8string()));
  if (builtIn.empty()) RefuseMissing(name);
  return std::string(builtIn);
}

}  // namespace koru
