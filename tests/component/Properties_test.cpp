#include <gtest/gtest.h>

#include <concepts>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/sql/DatabaseError.h"
#include "platform/text/Errors.h"
#include "tests/component/ControlFixture.h"

namespace koru {
namespace {

const std::vector<std::string> kStoredOrder = {
    "BackColor", "ForeColor",  "Enabled",    "BackStyle",       "BorderStyle", "OleConnectionString",
    "UserID",    "EmployeeID", "PositionID", "AccPeriodSpecID", "Font",        "ForcedReceiptID"};

template <class T>
concept CanTakeEmployee = requires(comInvCounting& control, T id) {
  control.SetEmployeeID(id);
};
template <class T>
concept CanTakePosition = requires(comInvCounting& control, T id) {
  control.SetPositionID(id);
};
template <class T>
concept CanTakeReceipt = requires(comInvCounting& control, T id) {
  control.SetForcedReceiptID(id);
};

using PropertiesTest = ControlFixture;

TEST_F(PropertiesTest, A_control_that_was_never_configured_persists_nothing_and_reads_back_its_defaults) {
  MapBag bag;
  control.WriteProperties(bag);
  EXPECT_EQ(bag.written, kStoredOrder);
  EXPECT_TRUE(bag.values.empty());

  control.SetForcedReceiptID(std::int16_t{5});
  control.SetOLEConnectionString("x");
  control.ReadProperties(bag);
  EXPECT_EQ(bag.read, kStoredOrder);
  EXPECT_EQ(control.ForcedReceiptID(), -1);
  EXPECT_EQ(control.OLEConnectionString(), "0");
  EXPECT_FALSE(control.Enabled());
  EXPECT_EQ(control.Font(), AmbientFont());
}

TEST_F(PropertiesTest, What_was_set_is_stored_and_comes_back) {
  control.SetBackColor(0x00FFEEDD);
  control.SetForeColor(-1);
  control.SetEnabled(true);
  control.SetBackStyle(1);
  control.SetBorderStyle(2);
  control.SetOLEConnectionString("Provider=SQLite;Data Source=a.db");
  control.SetUserID(2'000'000'000);
  control.SetEmployeeID(std::int16_t{32767});
  control.SetPositionID(std::int16_t{-32768});
  control.SetAccPeriodSpecID(70000);
  control.SetFont({"DejaVu Sans", 11, true, false});
  control.SetForcedReceiptID(std::int16_t{12});
  MapBag bag;
  control.WriteProperties(bag);
  EXPECT_EQ(bag.values.size(), 12U);

  control.InitProperties();
  EXPECT_EQ(control.UserID(), 0);
  control.ReadProperties(bag);
  EXPECT_EQ(control.BackColor(), 0x00FFEEDD);
  EXPECT_EQ(control.ForeColor(), -1);
  EXPECT_TRUE(control.Enabled());
  EXPECT_EQ(control.BackStyle(), 1);
  EXPECT_EQ(control.BorderStyle(), 2);
  EXPECT_EQ(control.OLEConnectionString(), "Provider=SQLite;Data Source=a.db");
  EXPECT_EQ(control.UserID(), 2'000'000'000);
  EXPECT_EQ(control.EmployeeID(), 32767);
  EXPECT_EQ(control.PositionID(), -32768);
  EXPECT_EQ(control.AccPeriodSpecID(), 70000);
  EXPECT_EQ(control.Font(), (koru::Font{"DejaVu Sans", 11, true, false}));
  EXPECT_EQ(control.ForcedReceiptID(), 12);
}

TEST_F(PropertiesTest, The_host_hears_of_each_change_under_the_store_key_and_nothing_else_happens) {
  control.SetBackColor(1);
  control.SetForeColor(1);
  control.SetEnabled(true);
  control.SetBackStyle(1);
  control.SetBorderStyle(1);
  control.SetOLEConnectionString("0");
  control.SetUserID(1);
  control.SetEmployeeID(std::int16_t{1});
  control.SetPositionID(std::int16_t{1});
  control.SetAccPeriodSpecID(1);
  control.SetFont({});
  control.SetForcedReceiptID(std::int16_t{1});
  EXPECT_EQ(reported, kStoredOrder);
  EXPECT_TRUE(recording.ConnectionTexts().empty());
  EXPECT_EQ(control.CountingForm(), nullptr);
}

TEST_F(PropertiesTest, A_number_wider_than_a_16_bit_property_cannot_be_represented) {
  static_assert(CanTakeEmployee<std::int16_t> && !CanTakeEmployee<std::int32_t> &&
                !CanTakeEmployee<std::int64_t>);
  static_assert(CanTakePosition<std::int16_t> && !CanTakePosition<std::int32_t>);
  static_assert(CanTakeReceipt<std::int16_t> && !CanTakeReceipt<std::int32_t>);

  control.SetUserID(7);
  for (const char* key : {"EmployeeID", "PositionID", "ForcedReceiptID", "BackStyle", "BorderStyle"}) {
    MapBag bag;
    bag.values[key] = std::int32_t{32768};
    try {
      control.ReadProperties(bag);
      ADD_FAILURE() << key;
    } catch (const InputError& error) {
      EXPECT_NE(std::string(error.what()).find(key), std::string::npos);
    }
    EXPECT_EQ(control.UserID(), 7) << "a store that cannot be read changes nothing";
  }
}

TEST_F(PropertiesTest, A_connection_text_of_0_is_kept_and_fails_only_when_a_form_opens) {
  EXPECT_EQ(control.OLEConnectionString(), "0");
  EXPECT_THROW(control.View(1), DatabaseError);
  EXPECT_EQ(recording.ConnectionTexts(), std::vector<std::string>{"0"});
  EXPECT_EQ(screen.CurrentCursor(), Cursor::Normal);
  EXPECT_THROW(control.ClearShow(), DatabaseError);
}

TEST_F(PropertiesTest, Refresh_does_nothing) {
  control.Refresh();
  EXPECT_TRUE(reported.empty());
  EXPECT_TRUE(recording.ConnectionTexts().empty());
}

}  // namespace
}  // namespace koru
