#include "counting/CommandStates.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/counting/CountingWorld.h"

namespace koru::test {
namespace {

using CommandStates = CountingWorld;

/// The states of all governed controls as one line: names of what is on, text boxes that can be typed into
/// included.
std::string On(frmInvCounting& form) {
  std::string on;
  for (const Control* control :
       {static_cast<Control*>(&form.flexDetail),     static_cast<Control*>(&form.cmdNew),
        static_cast<Control*>(&form.cmdEdit),        static_cast<Control*>(&form.cmdDelete),
        static_cast<Control*>(&form.cmdTmpSave),     static_cast<Control*>(&form.cmdCancel),
        static_cast<Control*>(&form.cmdView),        static_cast<Control*>(&form.cmdPrint),
        static_cast<Control*>(&form.cmdExit),        static_cast<Control*>(&form.mptCounter1),
        static_cast<Control*>(&form.mptCounter2),    static_cast<Control*>(&form.mptCounter3),
        static_cast<Control*>(&form.mptConfirmer),   static_cast<Control*>(&form.gmpInventory),
        static_cast<Control*>(&form.gdpReceiveDate), static_cast<Control*>(&form.gdpFromDate),
        static_cast<Control*>(&form.gdpToDate),      static_cast<Control*>(&form.cmdGoods),
        static_cast<Control*>(&form.cmdCalc),        static_cast<Control*>(&form.cmdDeleteAll)}) {
    if (control->Enabled()) on += control->Name() + " ";
  }
  if (!form.txtGNO.Locked()) on += "txtGNO ";
  if (!form.txtNotes.Locked()) on += "txtNotes ";
  return on;
}

TEST_F(CommandStates, Viewing) {
  control.View(10);
  Form().disablelockcomponent();
  EXPECT_EQ(On(Form()), "flexDetail cmdNew cmdEdit cmdDelete cmdExit ");
}

TEST_F(CommandStates, Editing_and_entering_a_new_counting) {
  const std::string entering =
      "flexDetail cmdTmpSave cmdCancel cmdExit mptCounter1 mptCounter2 mptCounter3 mptConfirmer gmpInventory "
      "gdpReceiveDate gdpFromDate gdpToDate cmdGoods cmdCalc cmdDeleteAll txtGNO txtNotes ";
  ViewAndEdit(10);
  EXPECT_EQ(On(Form()), entering);
  messages.WillAnswer(FakeMessages::Answer::Yes);
  Click(Form().cmdCancel);
  Click(Form().cmdNew);
  EXPECT_EQ(On(Form()), entering);
}

TEST_F(CommandStates, An_empty_form) {
  control.ClearShow();
  EXPECT_EQ(On(Form()), "cmdNew cmdExit ");
}

TEST_F(CommandStates, A_mode_that_is_none_sets_nothing) {
  control.View(10);
  Form().disablelockcomponent();
  const std::string before = On(Form());
  koru::disablelockcomponent(static_cast<DocumentMode>(4), Form());
  EXPECT_EQ(On(Form()), before);
}

TEST_F(CommandStates, Lines_are_typed_into_only_while_a_counting_is_entered) {
  View(10);
  EXPECT_FALSE(Form().flexDetail.UserEdit(1, 9, "11"));
  Click(Form().cmdEdit);
  EXPECT_TRUE(Form().flexDetail.UserEdit(1, 9, "11"));
}

}  // namespace
}  // namespace koru::test
