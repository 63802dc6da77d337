#include "platform/text/PersianText.h"

#include <algorithm>
#include <array>

#include "platform/text/Text.h"

namespace koru {
namespace {

constexpr char32_t kArabicBlock = 0x0600;

/// The Persian alphabet in sort order, after folding.
constexpr std::u32string_view kAlphabet = U"ءآاأإبپتثجچحخدذرزژسشصضطظعغفقکگلمنوؤهۀةیئ";

/// Sort position of each character of the Arabic block: first the alphabet, then all other characters in code
/// point order.
constexpr auto kWeights = [] {
  std::array<char32_t, 0x100> weights{};
  for (std::size_t i = 0; i < weights.size(); ++i)
    weights[i] = kArabicBlock + 0x100 + static_cast<char32_t>(i);
  for (std::size_t i = 0; i < kAlphabet.size(); ++i) {
    weights[kAlphabet[i] - kArabicBlock] = kArabicBlock + static_cast<char32_t>(i);
  }
  return weights;
}();

constexpr char32_t FoldCase(char32_t c) {
  if (c >= 'A' && c <= 'Z') return c + 0x20;
  if (c < 0xC0) return c;
  if (c <= 0xDE) return c == 0xD7 ? c : c + 0x20;
  if ((c >= 0x0391 && c <= 0x03A9) || (c >= 0x0410 && c <= 0x042F)) return c + 0x20;
  if (c >= 0x0400 && c <= 0x040F) return c + 0x50;
  return c;
}

constexpr char32_t Folded(char32_t character) {
  if (character < kArabicBlock) return FoldCase(character);
  if (character == 0x064A || character == 0x0649) return 0x06CC;
  if (character == 0x0643) return 0x06A9;
  if (character >= 0x0660 && character <= 0x0669) return '0' + (character - 0x0660);
  if (character >= 0x06F0 && character <= 0x06F9) return '0' + (character - 0x06F0);
  return character;
}

constexpr char32_t Weight(char32_t folded) {
  if (folded < kArabicBlock) return folded;
  if (folded < kArabicBlock + 0x100) return kWeights[folded - kArabicBlock];
  return folded + 0x100;
}

/// Removes trailing blanks and trailing non-joiners, which may follow each other.
std::string_view WithoutTrailingBlanks(std::string_view text) {
  constexpr std::string_view kNonJoiner = "\u200c";
  while (true) {
    text = text.substr(0, text.find_last_not_of(' ') + 1);
    if (!text.ends_with(kNonJoiner)) return text;
    text.remove_suffix(kNonJoiner.size());
  }
}

/// Weights of the most frequent characters, precomputed.
constexpr char32_t kCommonCharacters = kArabicBlock + 0x100;
constexpr auto kCommonWeights = [] {
  std::array<char32_t, kCommonCharacters> weights{};
  for (char32_t c = 0; c < kCommonCharacters; ++c) weights[c] = Weight(Folded(c)) + 1;
  return weights;
}();

/// Weight of the next character that takes part in a comparison; 0 at the end of the text.
char32_t NextWeight(std::string_view text, std::size_t& at) {
  while (at < text.size()) {
    const char32_t c = NextCharacter(text, at);
    if (c < kCommonCharacters) return kCommonWeights[c];
    if (c != kZeroWidthNonJoiner) return Weight(Folded(c)) + 1;
  }
  return 0;
}

}  // namespace

char32_t FoldCharacter(char32_t character) { return Folded(character); }

std::string FoldPersian(std::string_view text) {
  std::string folded;
  folded.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const char32_t c = NextCharacter(text, at);
    if (c != kZeroWidthNonJoiner) AppendCharacter(folded, FoldCharacter(c));
  }
  folded.resize(WithoutTrailingBlanks(folded).size());
  return folded;
}

void AppendPersianSortKey(std::string& keys, std::string_view text) {
  // Two bytes for each character, the high byte first. The few weights above 16 bits sort after all others.
  constexpr char32_t kWide = 0xFFFF;
  constexpr std::size_t kMaxBytes = 5;
  text = WithoutTrailingBlanks(text);
  const std::size_t begin = keys.size();
  keys.resize(begin + kMaxBytes * text.size());
  char* end = &keys[begin];
  const auto append = [&end](char32_t byte) { *end++ = static_cast<char>(byte & 0xFFU); };
  std::size_t at = 0;
  while (const char32_t weight = NextWeight(text, at)) {
    if (weight >= kWide) {
      append(0xFF);
      append(0xFF);
      append(weight >> 16U);
    }
    append(weight >> 8U);
    append(weight);
  }
  keys.resize(static_cast<std::size_t>(end - keys.data()));
}

std::string PersianSortKey(std::string_view text) {
  std::string key;
  AppendPersianSortKey(key, text);
  return key;
}

int ComparePersian(std::string_view a, std::string_view b) {
  a = WithoutTrailingBlanks(a);
  b = WithoutTrailingBlanks(b);
  // Skips the common ASCII prefix, which is long in barcodes.
  std::size_t same = 0;
  const std::size_t shorter = std::min(a.size(), b.size());
  while (same < shorter && a[same] == b[same] && static_cast<unsigned char>(a[same]) < 0x80U) ++same;
  std::size_t atA = same;
  std::size_t atB = same;
  while (true) {
    const char32_t weightA = NextWeight(a, atA);
    const char32_t weightB = NextWeight(b, atB);
    if (weightA != weightB) return weightA < weightB ? -1 : 1;
    if (weightA == 0) return 0;
  }
}

}  // namespace koru
