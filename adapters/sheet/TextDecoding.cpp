#include "adapters/sheet/TextDecoding.h"

#include <array>

#include "platform/text/Errors.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Little = "\xFF\xFE";
constexpr std::string_view kUtf16Big = "\xFE\xFF";
constexpr char32_t kReplacement = 0xFFFD;

/// The characters of the bytes from 0x80 in Windows-1256.
constexpr std::array<char16_t, 128> kWindows1256 = {
    0x20AC, 0x067E, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0679, 0x2039, 0x0152,
    0x0686, 0x0698, 0x0688, 0x06AF, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x06A9, 0x2122,
    0x0691, 0x203A, 0x0153, 0x200C, 0x200D, 0x06BA, 0x00A0, 0x060C, 0x00A2, 0x00A3, 0x00A4, 0x00A5, 0x00A6,
    0x00A7, 0x00A8, 0x00A9, 0x06BE, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x00AF, 0x00B0, 0x00B1, 0x00B2, 0x00B3,
    0x00B4, 0x00B5, 0x00B6, 0x00B7, 0x00B8, 0x00B9, 0x061B, 0x00BB, 0x00BC, 0x00BD, 0x00BE, 0x061F, 0x06C1,
    0x0621, 0x0622, 0x0623, 0x0624, 0x0625, 0x0626, 0x0627, 0x0628, 0x0629, 0x062A, 0x062B, 0x062C, 0x062D,
    0x062E, 0x062F, 0x0630, 0x0631, 0x0632, 0x0633, 0x0634, 0x0635, 0x0636, 0x00D7, 0x0637, 0x0638, 0x0639,
    0x063A, 0x0640, 0x0641, 0x0642, 0x0643, 0x00E0, 0x0644, 0x00E2, 0x0645, 0x0646, 0x0647, 0x0648, 0x00E7,
    0x00E8, 0x00E9, 0x00EA, 0x00EB, 0x0649, 0x064A, 0x00EE, 0x00EF, 0x064B, 0x064C, 0x064D, 0x064E, 0x00F4,
    0x064F, 0x0650, 0x00F7, 0x0651, 0x00F9, 0x0652, 0x00FB, 0x00FC, 0x200E, 0x200F, 0x06D2,
};

bool IsUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t from = at;
    const bool isReplacement = NextCharacter(text, at) == kReplacement;
    if (isReplacement && text.substr(from, at - from) != "\xEF\xBF\xBD") return false;
  }
  return true;
}

std::string FromWindows1256(std::string_view bytes) {
  std::string text;
  text.reserve(2 * bytes.size());
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    AppendCharacter(text, byte < 0x80 ? byte : kWindows1256.at(byte - 0x80U));
  }
  return text;
}

char32_t UnitAt(std::string_view bytes, std::size_t at, bool little) {
  const auto first = static_cast<unsigned char>(bytes[at]);
  const auto second = static_cast<unsigned char>(bytes[at + 1]);
  return little ? static_cast<char32_t>(second) << 8U | first : static_cast<char32_t>(first) << 8U | second;
}

std::string FromUtf16(std::string_view bytes, bool little) {
  std::string text;
  text.reserve(bytes.size());
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    char32_t character = UnitAt(bytes, at, little);
    const bool isLead = character >= 0xD800 && character < 0xDC00;
    const char32_t next = isLead && at + 3 < bytes.size() ? UnitAt(bytes, at + 2, little) : 0;
    if (next >= 0xDC00 && next < 0xE000) {
      character = 0x10000 + ((character - 0xD800) << 10U) + (next - 0xDC00);
      at += 2;
    } else if (character >= 0xD800 && character < 0xE000) {
      character = kReplacement;
    }
    AppendCharacter(text, character);
  }
  return text;
}

std::string Decoded(std::string_view bytes) {
  if (bytes.starts_with(kUtf16Little)) return FromUtf16(bytes.substr(2), true);
  if (bytes.starts_with(kUtf16Big)) return FromUtf16(bytes.substr(2), false);
  if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
  return IsUtf8(bytes) ? std::string(bytes) : FromWindows1256(bytes);
}

}  // namespace

std::string DecodedText(std::string_view bytes) {
  std::string text = Decoded(bytes);
  if (text.find('\0') != std::string::npos)
    throw InputError("نه پروندة اكسل (xlsx) است و نه متني با ستون\u200cها (CSV).");
  return text;
}

}  // namespace koru
