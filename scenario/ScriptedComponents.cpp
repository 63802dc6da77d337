#include "scenario/ScriptedComponents.h"

#include "scenario/Scenario.h"

namespace koru {

std::optional<std::vector<PickedGood>> ScriptedPicker::LetPick(
    GoodsFinder& finder, std::int32_t store, std::optional<std::vector<PickedGood>> basket) {
  const std::vector<std::string> barcodes = user_.PickGoods();
  if (barcodes.empty()) return std::nullopt;
  if (!basket && barcodes.size() > 1) {
    user_.CannotDo("pick several goods: the goods picker takes one");
    return std::nullopt;
  }
  finder.OnlyOfStore(store);
  std::vector<PickedGood> picked;
  for (const std::string& barcode : barcodes) {
    const FoundGoods found = finder.Find(barcode);
    if (found.goods.empty() || found.goods.front().barcode != barcode) {
      user_.CannotDo("pick " + QuotedForScenario(barcode) + ": the goods picker does not offer it");
      return std::nullopt;
    }
    picked.push_back(found.goods.front());
  }
  return picked;
}

void ScriptedDocument::LetUse(Database& database, const DocumentKind& kind, const Messages& messages,
                              StockDocument document) {
  const std::string name = &kind == &ReceiptKind() ? "receipt" : "dispatch";
  if (user_.UseDocument({name, document.id, document.code.has_value()}) == DocumentUse::View) return;
  if (messages.AskQuestion(sentences::kWarning, RegistrationQuestion(kind)) != kAnswerYes) return;
  RegisterDocument(database, kind, document.id);
}

}  // namespace koru
