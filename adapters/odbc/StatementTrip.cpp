#include "adapters/odbc/StatementTrip.h"

#include <utility>

namespace koru {
namespace {

constexpr const char* kMark = "KoruDone";

std::string Mark(const std::string& number) { return "select " + number + " as " + kMark + ";\n"; }

bool IsMark(const Recordset& result) {
  return result.Columns().size() == 1 && result.Columns().front() == kMark;
}

}  // namespace

bool StatementTrip::HasRoom(std::size_t bytes) const {
  return statements_ == 0 || (statements_ < kMaxStatements && text_.size() + bytes <= kMaxBytes);
}

void StatementTrip::Add(const std::string& statement) {
  if (statements_ == 0) text_ = Mark("-1");
  // On a line of its own, as the statement may end in a comment.
  text_ += statement + "\n;if @@error<>0 return;" + Mark(std::to_string(statements_));
  ++statements_;
}

void TripResults::Take(Recordset result) {
  if (!hasBegun_) {
    hasBegun_ = IsMark(result);
  } else if (IsMark(result)) {
    take_(done_, result_);
    ++done_;
    result_ = Recordset();
    hasResult_ = false;
  } else if (!hasResult_ || result_.Columns().empty()) {
    result_ = std::move(result);
    hasResult_ = true;
  }
}

}  // namespace koru
