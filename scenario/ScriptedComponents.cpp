#include "scenario/ScriptedComponents.h"

#include "scenario/Scenario.h"

namespace koru {

std::optional<std::vector<PickedGood>> PickScripted(ScenarioUser& user, GoodsFinder& finder,
                                                    const PickRequest& request) {
  const std::vector<std::string> barcodes = user.PickGoods();
  if (barcodes.empty()) return std::nullopt;
  if (!request.basket && barcodes.size() > 1) {
    user.CannotDo("pick several goods: the goods picker takes one");
    return std::nullopt;
  }
  finder.OnlyOfStore(request.store);
  std::vector<PickedGood> picked;
  for (const std::string& barcode : barcodes) {
    const FoundGoods found = finder.Find(barcode);
    if (found.goods.empty() || found.goods.front().barcode != barcode) {
      user.CannotDo("pick " + QuotedForScenario(barcode) + ": the goods picker does not offer it");
      return std::nullopt;
    }
    picked.push_back(found.goods.front());
  }
  return picked;
}

void UseScripted(ScenarioUser& user, const OpenedDocument& opened) {
  const std::string kind = &opened.kind == &ReceiptKind() ? "receipt" : "dispatch";
  const StockDocument& document = opened.document;
  if (user.UseDocument({kind, document.id, document.code.has_value()}) == DocumentUse::View) return;
  if (opened.messages.AskQuestion(sentences::kWarning, RegistrationQuestion(opened.kind)) != kAnswerYes)
    return;
  RegisterDocument(opened.database, opened.kind, document.id);
}

}  // namespace koru
