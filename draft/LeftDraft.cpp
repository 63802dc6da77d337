#include "draft/LeftDraft.h"

#include <array>
#include <cstdio>

#include "platform/text/Errors.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

std::string TimeText(const Draft::Moment& moment) {
  std::array<char, 16> time{};
  static_cast<void>(std::snprintf(time.data(), time.size(), "%02d:%02d", moment.hour, moment.minute));
  return SolarText(moment.date) + " ساعت " + time.data();
}

/// False when the draft could not be set aside either, and will be found again.
bool SetAside(Draft& draft, const std::string& damage, const Messages& messages) {
  try {
    messages.ShowMessage(sentences::kWarning,
                         damage + "\nاين پرونده با نام " + LeftToRight(draft.SetAside()) + " نگه داشته شد.");
    return true;
  } catch (const InputError& failure) {
    messages.ShowMessage(sentences::kWarning, damage + "\n" + failure.what());
    return false;
  }
}

}  // namespace

std::optional<LeftDraft> LeftDraft::Find(DraftStore& store, const DraftOwner& owner,
                                         const Messages& messages) {
  while (auto kept = store.FindLeft(owner)) {
    try {
      CountingDraft contents = DecodeDraft(kept->Read());
      if (contents.owner != owner) return {};
      return LeftDraft(std::move(contents), std::move(kept));
    } catch (const InputError& damage) {
      if (!SetAside(*kept, damage.what(), messages)) return {};
    }
  }
  return {};
}

std::string LeftDraft::Sentence() const {
  const std::string what = contents_.mode == DocumentMode::New ? std::string("شمارش تازه\u200cاي")
                                                               : "اصلاح شمارش " + contents_.Key();
  return what + " با " + std::to_string(contents_.Lines()) +
         " رديف ذخيره نشده است. آخرين پيش\u200cنويس: " + TimeText(kept_->Written());
}

}  // namespace koru
