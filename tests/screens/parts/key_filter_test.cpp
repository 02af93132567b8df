#include "screens/parts/key_filter.h"

#include "core/forms/keys.h"
#include "tests/support/part_test.h"

namespace fiscalon {
namespace {

class FilteredForm : public PartForm {
 public:
  TextField Field{*this, "Field", {.tabIndex = 0}};
  TextField Other{*this, "Other", {.tabIndex = 1}};
};

class KeyFilter : public PartTest<FilteredForm> {
 protected:
  /// Which of all characters pass.
  std::string Passing(std::string_view alsoAccepted) {
    std::string passing;
    for (int code = 1; code < 256; ++code) {
      int character = code;
      FilterKey(form.Field, character, alsoAccepted);
      if (character != 0) {
        EXPECT_EQ(character, code);
        passing.push_back(static_cast<char>(code));
      }
    }
    return passing;
  }
};

TEST_F(KeyFilter, LetsDigitsBackspaceAndEnterPassAndWhatTheFieldNames) {
  EXPECT_EQ(Passing(kDigitsAlone), "\b\r0123456789");
  EXPECT_EQ(Passing(kAmountKeys), "\b\r,.0123456789");
  EXPECT_EQ(Passing(",.-"), "\b\r,-.0123456789");
}

TEST_F(KeyFilter, GivesTheFieldTheFocusForARefusedKey) {
  WhileUp([&](FormUser&) {
    form.Other.SetFocus();
    int character = '1';
    FilterKey(form.Field, character, kDigitsAlone);
    EXPECT_EQ(FocusName(), "Other");
    character = 'x';
    FilterKey(form.Field, character, kDigitsAlone);
    EXPECT_EQ(FocusName(), "Field");
  });
}

}  // namespace
}  // namespace fiscalon
