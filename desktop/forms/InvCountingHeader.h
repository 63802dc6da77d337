#pragma once

#include <QWidget>

#include "platform/controls/Event.h"

class QGridLayout;

namespace koru {

class DateBox;
class FormBinding;
class frmInvCounting;
class PersonSelector;
class SelectorRecords;

/// The header of a counting in its window: the box of the document, and that of the people involved.
class InvCountingHeader : public QWidget {
  Q_OBJECT

 public:
  /// The form, the binding and the records must outlive the header.
  InvCountingHeader(frmInvCounting& form, FormBinding& binding, SelectorRecords& records, QWidget* parent);

 private:
  void AddDocument(QGridLayout& box);
  void AddPeople(QGridLayout& box);
  void AddDate(QGridLayout& box, int row, int column, const QString& title, DateBox& date);
  void AddPerson(QGridLayout& box, int row, int column, const QString& title, PersonSelector& person);

  frmInvCounting& form_;
  FormBinding& binding_;
  SelectorRecords& records_;
  Subscription keyChanged_;
};

}  // namespace koru
