#pragma once

#include <concepts>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "counting/frmInvCounting.h"
#include "platform/ports/PropertyBag.h"
#include "services/SharedState.h"

namespace koru {

/// The public control. A host screen places it, gives it a connection and the signed-in user, and opens a
/// stored counting (View) or an empty form for a new one (ClearShow). Setting a property stores the value and
/// reports the change to the host; no value is tested, and no database is accessed, before a form is opened.
///
/// Not thread-safe: the control, its form and its services are used from one thread. View and ClearShow
/// throw; what fails in a user's action on the form is shown to the user and does not reach the host.
class comInvCounting {
 public:
  /// `host` and everything in `services` must outlive the control. The properties have their defaults
  /// (InitProperties).
  comInvCounting(ControlHost& host, const HostServices& services);
  comInvCounting(const comInvCounting&) = delete;
  comInvCounting& operator=(const comInvCounting&) = delete;
  ~comInvCounting();

  /// Sets every property to its default; Font to the host's ambient font.
  void InitProperties();
  /// Reads every property in the order of storage; an absent one gets its default. Throws InputError for a
  /// value of another kind or width, and changes nothing.
  void ReadProperties(const PropertyBag& store);
  /// Writes every property in that order; one at its default is not stored.
  void WriteProperties(PropertyBag& store) const;

  // Appearance: kept for hosts that set it; it has no effect.
  [[nodiscard]] std::int32_t BackColor() const { return backColor_; }
  [[nodiscard]] std::int32_t ForeColor() const { return foreColor_; }
  [[nodiscard]] bool Enabled() const { return enabled_; }
  [[nodiscard]] std::int16_t BackStyle() const { return backStyle_; }
  [[nodiscard]] std::int16_t BorderStyle() const { return borderStyle_; }
  void SetBackColor(std::int32_t color);
  void SetForeColor(std::int32_t color);
  void SetEnabled(bool enabled);
  void SetBackStyle(std::int16_t style);
  void SetBorderStyle(std::int16_t style);

  /// The database connection; "0" until a host sets one.
  [[nodiscard]] const std::string& OLEConnectionString() const { return oleConnectionString_; }
  void SetOLEConnectionString(std::string connectionString);

  // The signed-in user. The keys differ in width; a 16-bit one takes no wider number.
  [[nodiscard]] std::int32_t UserID() const { return user_.userID; }
  [[nodiscard]] std::int16_t EmployeeID() const { return user_.employeeID; }
  [[nodiscard]] std::int16_t PositionID() const { return user_.positionID; }
  [[nodiscard]] std::int32_t AccPeriodSpecID() const { return user_.accPeriodSpecID; }
  /// A receipt that the host forces on the form; -1 for none.
  [[nodiscard]] std::int16_t ForcedReceiptID() const { return user_.forcedReceiptID; }
  void SetUserID(std::int32_t id);
  void SetAccPeriodSpecID(std::int32_t id);
  void SetEmployeeID(std::same_as<std::int16_t> auto id) { StoreEmployeeID(id); }
  void SetPositionID(std::same_as<std::int16_t> auto id) { StorePositionID(id); }
  void SetForcedReceiptID(std::same_as<std::int16_t> auto id) { StoreForcedReceiptID(id); }

  /// The font of the control's identifier box txtid.
  [[nodiscard]] const koru::Font& Font() const { return font_; }
  void SetFont(koru::Font font);

  /// Opens the stored counting of that key. Without one, shows a message and returns false; the form then
  /// stays loaded and hidden. Throws DatabaseError when the connection or a statement fails.
  bool View(std::int32_t id);
  /// Opens an empty form for a user who holds the right to open it. Throws DatabaseError.
  void ClearShow();
  /// Looks for what this user was entering into this database when a program ended without saving it. Returns
  /// a sentence about it, and nobody else finds it until it is restored, discarded or left. Nothing when the
  /// host keeps no drafts, or there is none. A damaged one is set aside and reported.
  [[nodiscard]] std::optional<std::string> FindDraft();
  /// Opens the form on the draft that FindDraft found, in the mode in which it was entered. False, and the
  /// draft stays found, when the user lacks the right to such an entry. Throws DatabaseError.
  bool RestoreDraft();
  /// Asks, then removes the draft that FindDraft found. False when it stays. Throws InputError.
  bool DiscardDraft();
  /// Leaves the draft that FindDraft found for later.
  void LeaveDraft() { leftDraft_.reset(); }

  /// Does nothing; hosts call it on every control.
  void Refresh() {}

  /// Lays out the control's own grid `flexTempDocs` for a control of this size in twips: it fills the
  /// control, and its column 7 takes the width that the other columns leave, or 2800
  /// twips where they leave none. A control of 4000 twips or less
  /// in width, or 2000 or less in height, is left as it is.
  static void Resize(int width, int height, Grid& flexTempDocs);

  /// The counting form; nullptr before the first View or ClearShow, and after the form was unloaded. The
  /// control owns it: the pointer is valid until the form is unloaded, by Exit or by a View or ClearShow with
  /// another connection, and until the control is destroyed, which asks the user nothing.
  [[nodiscard]] frmInvCounting* CountingForm() const;
  [[nodiscard]] const SharedState& Shared() const { return shared_; }

 private:
  void StoreEmployeeID(std::int16_t id);
  void StorePositionID(std::int16_t id);
  void StoreForcedReceiptID(std::int16_t id);
  frmInvCounting& LoadForm(DocumentMode mode);
  void ConnectSelectors(frmInvCounting& form);
  [[nodiscard]] bool ModalityParameter();

  ControlHost& host_;
  SharedState shared_;
  std::int32_t backColor_ = 0;
  std::int32_t foreColor_ = 0;
  bool enabled_ = false;
  std::int16_t backStyle_ = 0;
  std::int16_t borderStyle_ = 0;
  std::string oleConnectionString_;
  SignedInUser user_;
  koru::Font font_;
  std::unique_ptr<frmInvCounting> form_;
  std::optional<LeftDraft> leftDraft_;
};

}  // namespace koru
