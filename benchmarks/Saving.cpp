#include "benchmarks/Saving.h"

#include <functional>
#include <memory>
#include <stdexcept>

#include "benchmarks/Countings.h"
#include "benchmarks/Limits.h"
#include "benchmarks/LinesByHand.h"
#include "benchmarks/Program.h"

namespace koru::bench {
namespace {

/// A program with a full counting on its form, and a plain SQLite connection.
class Saving {
 public:
  Saving(const std::string& file, int counting)
      : counting_(counting),
        program_(file, counting, {}),
        plain_(file),
        ready_(ReadyLines(program_.Form().flexDetail)) {}

  void Save() { program_.Press(program_.Form().cmdTmpSave); }
  void SaveByHand() { koru::bench::SaveByHand(plain_, counting_, ready_); }
  void Register() { program_.Press(program_.Form().cmdIsFinalized); }
  void RegisterByHand() { koru::bench::RegisterByHand(plain_, counting_, ready_); }

  /// Makes the counting temporary, without documents and in edit mode.
  void StartAnew() {
    RemoveDocument("Receipt");
    RemoveDocument("Dispatch");
    plain_.Execute(
        "update tblInventoryCounting set Code = null, ReceiptID = null, DispatchID = null where ID = " +
        Key());
    plain_.Execute("PRAGMA wal_checkpoint(TRUNCATE)");
    program_.Edit();
    Program::Draw();
  }

  /// Throws if the two write different rows.
  void CheckSame(const std::function<void()>& ours, const std::function<void()>& byHand) {
    StartAnew();
    ours();
    const std::vector<std::string> written = Rows();
    StartAnew();
    byHand();
    if (written.empty() || Rows() != written)
      throw std::runtime_error("what is written by hand is not the same");
  }

 private:
  [[nodiscard]] std::string Key() const { return std::to_string(counting_); }
  /// A subquery for the key of the counting's receipt or dispatch.
  [[nodiscard]] std::string DocumentOf(const std::string& kind) const {
    return "(select " + kind + "ID from tblInventoryCounting where ID = " + Key() + ")";
  }
  void RemoveDocument(const std::string& kind) const {
    const std::string document = DocumentOf(kind);
    plain_.Execute("delete from tblInventory" + kind + "Detail where " + kind + "ID = " + document);
    plain_.Execute("delete from tblInventory" + kind + " where ID = " + document);
  }
  void AppendDocument(std::vector<std::string>& rows, const std::string& kind) const {
    const std::string document = DocumentOf(kind);
    const std::string lines = "select Barcode, Qty, ScaleID, ScaleQty, Description from tblInventory" + kind +
                              "Detail where " + kind + "ID = " + document + " order by Barcode";
    const std::string header =
        "select Code, InventoryID, CreatorID, ReceiveDate, FarsiReceiveDate, CreateDate, FarsiCreateDate, "
        "Notes"
        " from tblInventory" +
        kind + " where ID = " + document;
    for (const std::string& sql : {lines, header}) {
      const std::vector<std::string> more = CopyTexts(plain_, sql);
      rows.insert(rows.end(), more.begin(), more.end());
    }
  }
  [[nodiscard]] std::vector<std::string> Rows() const {
    std::vector<std::string> rows =
        CopyTexts(plain_, "select * from tblInventoryCountingDetail where CountingID = " + Key() +
                              " order by RowNumber");
    AppendDocument(rows, "Receipt");
    AppendDocument(rows, "Dispatch");
    return rows;
  }

  int counting_;
  Program program_;
  PlainConnection plain_;
  std::vector<ReadyLine> ready_;
};

}  // namespace

std::vector<Workload> SavingWorkloads(const std::string& fullSample) {
  const auto saving = std::make_shared<Saving>(fullSample, kFullCounting);
  const Workload save{"temporary save, 32,767 lines", 2.5, [saving] { saving->Save(); },
                      [saving] { saving->SaveByHand(); }, [saving] { saving->StartAnew(); }};
  const auto registering = std::make_shared<Saving>(fullSample, kCountingToRegister);
  const Workload registration{
      "registration, 10,000 shortages, 10,000 surpluses", 2.5, [registering] { registering->Register(); },
      [registering] { registering->RegisterByHand(); }, [registering] { registering->StartAnew(); }};
  saving->CheckSame(save.ours, save.limit);
  registering->CheckSame(registration.ours, registration.limit);
  return {save, registration};
}

}  // namespace koru::bench
