#include "adapters/sheet/TableFile.h"

#include <fstream>
#include <iterator>

#include "adapters/sheet/SeparatedTexts.h"
#include "adapters/sheet/TextDecoding.h"
#include "adapters/sheet/WorkbookTable.h"
#include "platform/text/Errors.h"
#include "platform/text/FilePath.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

constexpr std::uintmax_t kMaxFileSize = std::uintmax_t{64} << 20U;

constexpr std::string_view kZip = "PK";
constexpr std::string_view kCompound =
    "\xD0\xCF\x11\xE0";  ///< workbooks before 2007, and those with a password

std::string BytesOf(const std::string& path) {
  const std::filesystem::path file = PathOf(path);
  std::error_code failure;
  const std::uintmax_t size = std::filesystem::file_size(file, failure);
  if (!failure && size > kMaxFileSize) throw InputError("بيش از اندازه بزرگ است.");
  std::ifstream stream(file, std::ios::binary);
  std::string bytes(failure ? 0 : static_cast<std::size_t>(size), '\0');
  if (failure || !stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size())))
    throw InputError("در دسترس نيست.");
  return bytes;
}

}  // namespace

std::optional<FileTable> ReadTable(std::string_view bytes, std::size_t sheet,
                                   const TableFiles::Progress& progress) {
  if (bytes.starts_with(kCompound))
    throw InputError("كارپوشة قديمي اكسل است يا گذرواژه دارد؛ آن را بي گذرواژه و با پسوند xlsx ذخيره كنيد.");
  if (bytes.starts_with(kZip)) return ReadWorkbookTable(bytes, sheet, progress);
  return ReadSeparatedTexts(DecodedText(bytes), progress);
}

std::optional<FileTable> ReadTableFile(const std::string& path, std::size_t sheet,
                                       const TableFiles::Progress& progress) {
  try {
    return ReadTable(BytesOf(path), sheet, progress);
  } catch (const InputError& reason) {
    throw InputError("پروندة " + LeftToRight(path) + " خوانده نشد: " + reason.what());
  }
}

}  // namespace koru
