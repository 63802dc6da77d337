#pragma once

#include <QFont>
#include <QString>
#include <QWidget>

#include "component/comInvCounting.h"
#include "desktop/forms/FormBinding.h"
#include "platform/controls/Form.h"
#include "platform/ports/HostServices.h"

class QLineEdit;

namespace koru {

class DraftOffer;
class GridView;

/// The public control as a widget for host screens. It has the control's properties under their own names,
/// its operations, and its grid flexTempDocs, which lists the temporary countings of the connected database
/// and opens one on a double click. The list is read when the widget is shown and when the counting form is
/// hidden; the current counting stays current.
///
/// Where the host keeps drafts, the widget offers what the user was entering when a program ended: when it is
/// shown, and when another user signs in.
///
/// Another OLEConnectionString closes the counting form. While a counting is being entered, the question of
/// Cancel is asked first, and the property keeps its value unless the answer is yes.
///
/// BackStyle, BorderStyle, EmployeeID, PositionID and ForcedReceiptID hold 16 bits: a number from -32768 to
/// 32767. Any other is refused with a warning in the toolkit's log, and the property keeps its value.
///
/// Setting a property does not read the database, nor does Refresh: to connect a visible widget, a host hides
/// it first and shows it again. The list does not depend on the user.
///
/// Used on the application's thread alone. Nothing is thrown: failures of the database are shown to the user.
class comInvCountingWidget : public QWidget, private ControlHost {
  Q_OBJECT
  Q_PROPERTY(int BackColor READ BackColor WRITE SetBackColor NOTIFY propertyChanged)
  Q_PROPERTY(int ForeColor READ ForeColor WRITE SetForeColor NOTIFY propertyChanged)
  Q_PROPERTY(bool Enabled READ Enabled WRITE SetEnabled NOTIFY propertyChanged)
  Q_PROPERTY(int BackStyle READ BackStyle WRITE SetBackStyle NOTIFY propertyChanged)
  Q_PROPERTY(int BorderStyle READ BorderStyle WRITE SetBorderStyle NOTIFY propertyChanged)
  Q_PROPERTY(QString OLEConnectionString READ OLEConnectionString WRITE SetOLEConnectionString NOTIFY
                 propertyChanged)
  Q_PROPERTY(int UserID READ UserID WRITE SetUserID NOTIFY propertyChanged)
  Q_PROPERTY(int EmployeeID READ EmployeeID WRITE SetEmployeeID NOTIFY propertyChanged)
  Q_PROPERTY(int PositionID READ PositionID WRITE SetPositionID NOTIFY propertyChanged)
  Q_PROPERTY(int AccPeriodSpecID READ AccPeriodSpecID WRITE SetAccPeriodSpecID NOTIFY propertyChanged)
  Q_PROPERTY(QFont Font READ Font WRITE SetFont NOTIFY propertyChanged)
  Q_PROPERTY(int ForcedReceiptID READ ForcedReceiptID WRITE SetForcedReceiptID NOTIFY propertyChanged)

 public:
  /// Everything in `services` must outlive the widget.
  explicit comInvCountingWidget(const HostServices& services, QWidget* parent = nullptr);
  ~comInvCountingWidget() override;

  [[nodiscard]] int BackColor() const { return control_.BackColor(); }
  [[nodiscard]] int ForeColor() const { return control_.ForeColor(); }
  [[nodiscard]] bool Enabled() const { return control_.Enabled(); }
  [[nodiscard]] short BackStyle() const { return control_.BackStyle(); }
  [[nodiscard]] short BorderStyle() const { return control_.BorderStyle(); }
  [[nodiscard]] QString OLEConnectionString() const;
  [[nodiscard]] int UserID() const { return control_.UserID(); }
  [[nodiscard]] short EmployeeID() const { return control_.EmployeeID(); }
  [[nodiscard]] short PositionID() const { return control_.PositionID(); }
  [[nodiscard]] int AccPeriodSpecID() const { return control_.AccPeriodSpecID(); }
  [[nodiscard]] QFont Font() const;
  [[nodiscard]] short ForcedReceiptID() const { return control_.ForcedReceiptID(); }

  void SetBackColor(int color) { control_.SetBackColor(color); }
  void SetForeColor(int color) { control_.SetForeColor(color); }
  void SetEnabled(bool enabled) { control_.SetEnabled(enabled); }
  void SetBackStyle(int style);
  void SetBorderStyle(int style);
  void SetOLEConnectionString(const QString& connection);
  void SetUserID(int id);
  void SetEmployeeID(int id);
  void SetPositionID(int id);
  void SetAccPeriodSpecID(int id) { control_.SetAccPeriodSpecID(id); }
  void SetFont(const QFont& font);
  void SetForcedReceiptID(int id);

  void ReadProperties(const PropertyBag& store);
  void WriteProperties(PropertyBag& store) const { control_.WriteProperties(store); }

  /// Opens a stored counting. False if it does not exist or the database failed (both are reported in a
  /// message), or if the user keeps the counting that is being entered.
  Q_INVOKABLE bool View(int id);
  /// Opens an empty form for a new counting, unless the user keeps the counting that is being entered.
  Q_INVOKABLE void ClearShow();
  /// Opens a form on which a new counting has begun, as its command New begins it, unless the user keeps the
  /// counting that is being entered.
  Q_INVOKABLE void BeginNew();
  Q_INVOKABLE void Refresh() { control_.Refresh(); }
  /// For a host with a list of its own: the widget then consists of its offer of drafts.
  void HideList();

 signals:
  /// Emitted after the property stored under `key` has changed.
  void propertyChanged(const QString& key);
  /// Emitted instead of reading a hidden list: when the widget is shown, and when the counting form is
  /// hidden, which may have stored a counting.
  void listOutdated();

 protected:
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  [[nodiscard]] koru::Font AmbientFont() const override;
  void PropertyChanged(std::string_view key) override;
  void SetUpList();
  void ReadList();
  void FollowForm();
  void SetUpOffer();
  void OfferDraft();
  void RestoreDraft();
  void DiscardDraft();
  void ShowFont();
  [[nodiscard]] int ChosenID() const;
  void Choose(int id, int row);
  [[nodiscard]] bool IsBeingEntered() const;
  [[nodiscard]] bool MayDiscardEntry();

  HostServices services_;
  comInvCounting control_;
  Form form_;  ///< the controls on the widget itself
  Grid flexTempDocs_;
  GridView* list_;
  DraftOffer* offer_;
  QLineEdit* txtid_;
  Subscription formChanged_;
  FormBinding binding_;
};

}  // namespace koru
