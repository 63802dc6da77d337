#include "platform/sql/CallText.h"

namespace koru {

std::string CallText(std::string_view procedure, const std::vector<std::int32_t>& parameters) {
  std::string text = "{? = CALL " + std::string(procedure) + "(";
  for (const std::int32_t parameter : parameters) {
    text += (text.back() == '(' ? " " : ", ") + std::to_string(parameter);
  }
  return text + ") }";
}

}  // namespace koru
