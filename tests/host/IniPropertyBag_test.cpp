#include "host/IniPropertyBag.h"

#include <gtest/gtest.h>

#include <fstream>

#include "adapters/system/TemporaryFolder.h"
#include "platform/text/Errors.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

class IniPropertyBagTest : public testing::Test {
 protected:
  TemporaryFolder folder_;
  std::filesystem::path path_ = folder_.Path() / "p.ini";
  IniFile file_ = IniFile::Read(path_);
  IniPropertyBag bag_{file_, "c"};
};

TEST_F(IniPropertyBagTest, Every_kind_of_value_comes_back) {
  const Font font{"Vazirmatn; UI", 9.5, true, false};
  const std::pair<PropertyValue, PropertyValue> values[] = {{true, false},
                                                            {false, true},
                                                            {-2147483647, 0},
                                                            {std::string("0"), std::string()},
                                                            {font, Font{"x", 8}}};
  for (const auto& [value, defaultValue] : values) {
    bag_.Write("Key", value, defaultValue);
    file_.Write();
    IniFile again = IniFile::Read(path_);
    EXPECT_EQ(IniPropertyBag(again, "c").Read("Key", defaultValue), value);
  }
}

TEST_F(IniPropertyBagTest, A_default_is_not_stored) {
  bag_.Write("UserID", 3, 0);
  EXPECT_EQ(file_.Get("c", "UserID"), "3");
  bag_.Write("UserID", 0, 0);
  EXPECT_EQ(file_.Get("c", "UserID"), std::nullopt);
  EXPECT_EQ(bag_.Read("UserID", 7), PropertyValue(7));
}

TEST_F(IniPropertyBagTest, What_is_not_of_the_kind_is_named_with_key_file_and_line) {
  std::ofstream(path_) << "[c]\nUserID=three\nEnabled=yes\nBig=2147483648\nFont=x;9\n";
  file_ = IniFile::Read(path_);
  const auto errorOf = [&](const char* key, const PropertyValue& kind) -> std::string {
    try {
      static_cast<void>(bag_.Read(key, kind));
    } catch (const InputError& error) {
      return error.what();
    }
    return "no error";
  };
  EXPECT_EQ(errorOf("UserID", 0),
            "مقدار UserID در پروندة تنظيمات خوانا نيست: " + LeftToRight(path_.string()) + "، سطر 2");
  EXPECT_NE(errorOf("Enabled", false), "no error");
  EXPECT_NE(errorOf("Big", 0), "no error");
  EXPECT_EQ(errorOf("Font", Font{"x", 8}),
            "مقدار Font در پروندة تنظيمات خوانا نيست: " + LeftToRight(path_.string()) + "، سطر 5");
  EXPECT_EQ(errorOf("Font", std::string()), "no error");
}

}  // namespace
}  // namespace koru
