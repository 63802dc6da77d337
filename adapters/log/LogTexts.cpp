#include "adapters/log/LogTexts.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "platform/sql/ConnectionText.h"
#include "platform/sql/DatabaseError.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

/// Shorter pieces of a typed text occur in any sentence by chance.
constexpr std::size_t kMinPiece = 3;

std::vector<std::string_view> TypedTextsOf(const SqlText& statement) {
  std::vector<std::string_view> texts;
  for (const SqlText::Span& span : statement.TypedSpans())
    texts.push_back(std::string_view(statement.Text()).substr(span.begin, span.end - span.begin));
  return texts;
}

/// The bytes of the longest piece of `typed` with which `text` begins.
std::size_t CommonPiece(std::string_view text, std::string_view typed) {
  std::size_t longest = 0;
  for (std::size_t at = 0; at < typed.size(); ++at) {
    const auto differs =
        std::mismatch(text.begin(), text.end(), typed.begin() + static_cast<std::ptrdiff_t>(at), typed.end());
    longest = std::max(longest, static_cast<std::size_t>(differs.first - text.begin()));
  }
  return longest;
}

bool IsWordByte(std::string_view text, std::size_t at) {
  if (at >= text.size()) return false;
  const auto c = static_cast<unsigned char>(text[at]);
  return c >= 0x80 || (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// The length of what is typed at this place of an error's text, where a word begins: a long piece, or a
/// whole short text that is a word of its own.
std::size_t TypedAt(std::string_view error, std::size_t at, const std::vector<std::string_view>& texts) {
  if (at > 0 && IsWordByte(error, at - 1)) return 0;
  std::size_t longest = 0;
  for (const std::string_view typed : texts) {
    const std::size_t piece = CommonPiece(error.substr(at), typed);
    const bool isWhole = piece == typed.size() && !IsWordByte(error, at + piece);
    if (piece >= kMinPiece || isWhole) longest = std::max(longest, piece);
  }
  return longest;
}

bool ContinuesCharacter(std::string_view text, std::size_t at) {
  return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
}

std::vector<std::string> PasswordsOf(const std::string& connectionText) {
  try {
    const ConnectionText text = ConnectionText::Parse(connectionText);
    return {text.Get("Password"), text.Get("PWD")};
  } catch (const DatabaseError&) {
    return {};
  }
}

}  // namespace

std::string Masked(std::string_view text) {
  std::string masked;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t c = NextCharacter(text, at);
    if (c >= U'0' && c <= U'9') {
      masked += '9';
    } else if (c >= 0x80 || (c >= U'A' && c <= U'Z') || (c >= U'a' && c <= U'z')) {
      masked += 'x';
    } else {
      masked += static_cast<char>(c);
    }
  }
  return masked;
}

std::string MaskedStatement(const SqlText& statement) {
  const std::string_view text = statement.Text();
  std::string masked;
  std::size_t end = 0;
  for (const SqlText::Span& span : statement.TypedSpans()) {
    masked += text.substr(end, span.begin - end);
    masked += Masked(text.substr(span.begin, span.end - span.begin));
    end = span.end;
  }
  return masked + std::string(text.substr(end));
}

std::string MaskedError(std::string_view error, const SqlText& statement) {
  const std::vector<std::string_view> texts = TypedTextsOf(statement);
  std::string masked;
  for (std::size_t at = 0; at < error.size();) {
    const std::size_t typed = TypedAt(error, at, texts);
    std::size_t end = at + std::max<std::size_t>(typed, 1);
    while (ContinuesCharacter(error, end)) ++end;
    const std::string_view piece = error.substr(at, end - at);
    masked += typed > 0 ? Masked(piece) : std::string(piece);
    at = end;
  }
  return masked;
}

std::string ConnectionForLog(const std::string& connectionText) {
  try {
    return ConnectionText::Parse(connectionText).WithoutPassword();
  } catch (const DatabaseError&) {
    return "(a connection text that cannot be read)";
  }
}

std::string ErrorWithoutPasswords(std::string error, const std::string& connectionText) {
  for (const std::string& password : PasswordsOf(connectionText)) {
    error = WordsWithoutPassword(std::move(error), password);
  }
  return error;
}

}  // namespace koru
