#include "screens/parts/key_filter.h"

#include <initializer_list>

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

TEST(DropQuote, SwallowsTheDoubleQuoteAlone) {
  for (int code = 1; code < 256; ++code) {
    int character = code;
    DropQuote(character);
    EXPECT_EQ(character, code == '"' ? 0 : code);
  }
}

int Capitalized(int character) {
  Capitalize(character);
  return character;
}

TEST(Capitalize, TurnsSmallLettersIntoCapitals) {
  EXPECT_EQ(Capitalized('a'), 'A');
  EXPECT_EQ(Capitalized('z'), 'Z');
  // "e" with an acute accent, and "oe".
  EXPECT_EQ(Capitalized(0xE9), 0xC9);
  EXPECT_EQ(Capitalized(0x9C), 0x8C);
}

TEST(Capitalize, LeavesOtherCharactersAsTheyAre) {
  // The last two: the division sign, and the sharp "s", which has no capital.
  for (const int character : std::initializer_list<int>{0, 8, 13, ' ', '1', '@', 'A', '[', '`', '{', 0xC9, 0xF7, 0xDF})
    EXPECT_EQ(Capitalized(character), character);
}

}  // namespace
}  // namespace fiscalon
