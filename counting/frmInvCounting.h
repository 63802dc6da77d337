#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "counting/DocumentCommands.h"
#include "counting/FiguresAge.h"
#include "counting/LineFinder.h"
#include "counting/StockCheck.h"
#include "counting/StoreChange.h"
#include "counting/StoreOfFigures.h"
#include "counting/controls/InvCountingControls.h"
#include "draft/DraftKeeper.h"
#include "draft/LeftDraft.h"
#include "lines/AcceptedCounts.h"
#include "lines/AddGoods.h"
#include "lines/CountingLines.h"
#include "lines/EntryHistory.h"
#include "lines/ImportCounts.h"
#include "lines/LineEditing.h"
#include "lines/SystemQuantity.h"
#include "output/ExcelExport.h"
#include "output/LinkedDocuments.h"
#include "output/ViewReport.h"
#include "platform/controls/Form.h"
#include "registration/FinalRegistration.h"
#include "registration/ReturnToTemporary.h"
#include "registration/TemporarySave.h"
#include "search/frmGoodSearch.h"
#include "search/frmInvSearch.h"
#include "services/SharedState.h"

namespace koru {

/// The two commands that write an entry.
enum class WantedSave { Temporary, Final };

/// The counting form: one counting document at a time, with its lines, its commands and its totals.
class frmInvCounting : public Form, public InvCountingControls {
 public:
  /// `shared` must outlive the form.
  explicit frmInvCounting(SharedState& shared);
  frmInvCounting(const frmInvCounting&) = delete;
  frmInvCounting& operator=(const frmInvCounting&) = delete;
  ~frmInvCounting() override;

  /// Starts the form up: report folder, grid, creator, store selector, default store, linked documents. Runs
  /// once; after a failure (DatabaseError) the next call starts again from the beginning.
  void Load();

  /// Opens a stored counting on the form: header, mode 0, lines. Returns false, and changes nothing but the
  /// shared CurrentCountingID, when no counting has that key. Throws DatabaseError: nothing changes when the
  /// header cannot be read, and the form is empty (mode 3) after any other failure.
  bool ViewInvCounting(std::int32_t id);
  /// Continues the entry that a draft holds, in its mode. Returns false, and takes nothing, when the user
  /// lacks the right to it; a message says so. Throws DatabaseError.
  bool ContinueDraft(LeftDraft& draft);
  /// Shows the header alone; false when the counting does not exist.
  bool FillInvCountingData(std::int32_t id);
  /// Shows the lines alone.
  void FillInvCounterDetailData(std::int32_t id);
  /// Applies the shared document mode to commands and fields.
  void disablelockcomponent();
  /// Shows the signed-in user's name as the creator.
  void Initialize();
  /// Enables each command by what is on the form, as the form's timer does. The timer's first tick comes too
  /// late: until then the commands would be those of another document.
  void RefreshCommands();
  /// Empties the document; the caller sets the mode.
  void Clear();

  /// Whether the document on the form is new or open for changes.
  [[nodiscard]] bool IsBeingEntered() const;
  /// Whether the lines on the form are those in the database, in the same order. They are not while they are
  /// being entered, nor after Cancel, which keeps what was typed on the form.
  [[nodiscard]] bool LinesAreStored() const { return linesAreStored_; }
  /// Whether the database has all of the entry that was begun last: nothing has been entered yet, or a save
  /// or a registration has written it. False once lines are read: those may be another station's.
  [[nodiscard]] bool EntryIsWritten() const { return entryIsWritten_; }
  /// The form's ready flag, kept for the suite (ViewReport::Ready).
  [[nodiscard]] bool Ready() const { return viewReport_.Ready(); }

  /// Whether Enter in a line moves to the next line instead of the next cell to fill: a setting of the user,
  /// which the host keeps. SetEnterGoesDown throws what the host's store throws; the form has the setting all
  /// the same.
  [[nodiscard]] bool EnterGoesDown() const { return enterGoesDown_; }
  void SetEnterGoesDown(bool down);
  /// The user's settings of the windows, which the host keeps; nullptr if it keeps none.
  [[nodiscard]] PropertyBag* Preferences() const { return shared_.services.preferences; }

  /// Whether who uses the form enters one count without the other figures: what compares or overwrites counts
  /// is not offered then, and figures entered before cannot be taken back.
  void SetBlind(bool blind);

  /// What the forms of the control share; it lives as long as the form.
  [[nodiscard]] const SharedState& Shared() const { return shared_; }
  /// What finds and filters the lines.
  [[nodiscard]] LineFinder& Finder() { return finder_; }

  /// Raised when a command is done, with a sentence about what it did.
  Event<std::string> CommandReported;
  /// Raised after a goods search, with the count of added lines, which may be 0.
  Event<int> GoodsAdded;
  /// Raised before Cancel asks whether the entry is to be given up, whatever command wants it. A listener
  /// that sets the flag keeps the entry, and Cancel does not ask.
  Event<bool&> CancelWanted;
  /// Raised before the entry is saved or registered. A listener that sets the flag keeps the entry as it is:
  /// the command does nothing.
  Event<WantedSave, bool&> SaveWanted;

  /// A scanned barcode has no line: offers cmdAddScanned, which adds the good. Only while a document is
  /// entered.
  void OfferScanned(std::string barcode);
  /// The barcode that is offered.
  [[nodiscard]] const std::string& ScannedBarcode() const { return scannedBarcode_; }

  /// The condition on tblGood that the goods search left; empty when nothing was searched.
  SqlText GoodSearchCondition;

  /// Takes the goods search, if there is one, out of an unloaded form of the same connection: its criteria
  /// are kept when the counting form is closed. To be called before this form opens one.
  void TakeGoodSearchOf(frmInvCounting& unloaded);

  void Activate() override;
  /// Closing the window is the command Exit: a document that is being entered is not lost without a question.
  void UserClose() override;

 protected:
  void OnUnload() override;

 private:
  void ConnectEvents();
  void ShowInvSearch();
  const SqlText& SearchGoods();
  void AddSearchedGoods();
  void AddScannedGood();
  void ReadStoredLines();
  void CheckMovedStock();
  void Cancel();
  void Exit();
  bool OpenFound(std::int32_t id);
  void RunAndTick(const std::function<void()>& command);
  void Enter(const std::function<void()>& command);
  void Save(WantedSave wanted, const std::function<std::string()>& command);
  void ReadPreferences();
  void ShowHistory();
  void Tick();

  SharedState& shared_;
  bool started_ = false;
  int idleTicks_ = 0;  ///< ticks since the last command
  bool linesAreStored_ = true;
  bool entryIsWritten_ = false;
  bool enterGoesDown_ = false;
  std::string scannedBarcode_;
  CountingLines lines_;
  LineEditing editing_;
  EntryHistory history_;
  AcceptedCounts acceptedCounts_;
  LineFinder finder_;
  SystemQuantity quantity_;
  AddGoods addGoods_;
  ImportCounts importCounts_;
  StoredCountingGuard guard_;
  StoreChange storeChange_;
  StoreOfFigures storeOfFigures_;
  FiguresAge figuresAge_;
  StockCheck stockCheck_;
  DocumentCommands commands_;
  TemporarySave temporarySave_;
  FinalRegistration finalRegistration_;
  ReturnToTemporary returnToTemporary_;
  ViewReport viewReport_;
  ExcelExport excelExport_;
  LinkedDocuments linkedDocuments_;
  DraftKeeper drafts_;
  // The search dialogs: made when they are first opened, so that they keep their criteria until this form is
  // unloaded.
  std::unique_ptr<frmInvSearch> invSearch_;
  std::unique_ptr<frmGoodSearch> goodSearch_;
};

}  // namespace koru
