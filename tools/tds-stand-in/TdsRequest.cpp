#include "tools/tds-stand-in/TdsRequest.h"

#include <stdexcept>

#include "tools/tds-stand-in/TdsWire.h"

namespace koru::test {
namespace {

constexpr std::uint64_t kCalledByNumber = 0xFFFF;
constexpr std::uint64_t kNullableWhole = 0x26;

/// Reads a message from its beginning to its end.
class Reader {
 public:
  explicit Reader(std::string_view rest) : rest_(rest) {}

  std::string_view Take(std::size_t bytes) {
    if (bytes > rest_.size()) throw std::out_of_range("a message ends too soon");
    const std::string_view taken = rest_.substr(0, bytes);
    rest_.remove_prefix(bytes);
    return taken;
  }
  std::uint64_t Number(std::size_t bytes) { return ReadLittle(Take(bytes), bytes); }
  /// Skips the headers of a request, which a server with one session per connection does not need.
  void SkipHeaders() {
    const std::uint64_t size = ReadLittle(rest_, 4);
    Take(size);
  }
  [[nodiscard]] std::string_view Rest() const { return rest_; }

 private:
  std::string_view rest_;
};

std::int32_t ReadParameter(Reader& reader) {
  reader.Take(2 * reader.Number(1));  // its name
  reader.Take(1);                     // whether it is an output as well
  if (reader.Number(1) != kNullableWhole) throw std::invalid_argument("a parameter that is no whole number");
  reader.Take(1);  // the size of its type
  const std::uint64_t size = reader.Number(1);
  if (size != 4) throw std::invalid_argument("a parameter that has not 32 bits");
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(reader.Number(size)));
}

}  // namespace

std::string ReadBatch(std::string_view body) {
  Reader reader(body);
  reader.SkipHeaders();
  return Narrow(reader.Rest());
}

std::string ReadDatabase(std::string_view body) {
  constexpr std::size_t kPlace = 68;  // of the name's offset and length
  Reader reader(body);
  reader.Take(kPlace);
  const std::uint64_t offset = reader.Number(2);
  const std::uint64_t units = reader.Number(2);
  Reader whole(body);
  whole.Take(offset);
  return Narrow(whole.Take(2 * units));
}

ProcedureCall ReadCall(std::string_view body) {
  Reader reader(body);
  reader.SkipHeaders();
  const std::uint64_t units = reader.Number(2);
  if (units == kCalledByNumber) throw std::invalid_argument("a procedure that is called by number");
  ProcedureCall call{Narrow(reader.Take(2 * units)), {}};
  reader.Take(2);  // how it wants to be answered
  while (!reader.Rest().empty()) call.parameters.push_back(ReadParameter(reader));
  return call;
}

}  // namespace koru::test
