#include "screens/parts/account_number.h"

#include "tests/support/part_test.h"

namespace fiscalon {
namespace {

using testing::ElementsAre;

class AccountForm : public PartForm {
 public:
  // clang-format off
  ValidationGuard inValidation {*this, cmdCancel};
  AccountNumber   txtAccount   {*this, "txtAccount", {.tabIndex = 0, .maxLength = 15}, inValidation, &txtNext};
  TextField       txtNext      {*this, "txtNext",    {.tabIndex = 1}};
  Button          cmdCancel    {*this, "cmdCancel",  {.caption = "Cancel", .cancel = true}, {}};
  // clang-format on
};

class AccountNumberTest : public PartTest<AccountForm> {
 protected:
  /// What leaving a field of that text says.
  std::vector<std::string> Left(std::string_view text) {
    form.txtAccount.Text(text);
    WhileUp([&](FormUser& user) { user.Key("Tab"); });
    form.Unload();
    return TakeTexts();
  }

  static constexpr const char* kInvalid =
      "The GST Account Number must be a valid CRA Business Number in the form 999999999RT9999.";
};

TEST(ValidateGSTAccountNumber, WeighsEverySecondDigitTwice) {
  // 1 + 4 + 3 + 8 + 5 + (1 + 2) + 7 + (1 + 6) + 2 = 40.
  EXPECT_TRUE(ValidateGSTAccountNumber("123456782"));
  EXPECT_TRUE(ValidateGSTAccountNumber("000000000"));
  EXPECT_FALSE(ValidateGSTAccountNumber("123456783"));
  EXPECT_FALSE(ValidateGSTAccountNumber("213456782"));
  // 0 + (1 + 8) + 1 = 10.
  EXPECT_TRUE(ValidateGSTAccountNumber("091000000"));
}

TEST(ValidateGSTAccountNumber, RefusesNumbersThatAreNotAllDigits) {
  // Without the letter, the sums would be 2 + 4 + 3 + 8 + 5 + (1 + 2) + 7 + 8 = 40 and 1 + 9 = 10. An "E" is 21
  // characters behind "0": taken for that number, it would make (2 + 1) + 7 = 10.
  for (const char* number : {"2234567E8", "1E0000009", "-00000000", "1.2345674", "+91000000", "E00000007"})
    EXPECT_FALSE(ValidateGSTAccountNumber(number)) << number;
}

TEST_F(AccountNumberTest, TakesDigitsAndLettersAsCapitals) {
  WhileUp([&](FormUser& user) {
    user.Type("1 2-a.\xe9Zz,");
    EXPECT_EQ(form.txtAccount.Text(), "12AZZ");
    user.Key("Backspace");
    EXPECT_EQ(form.txtAccount.Text(), "12AZ");
  });
}

TEST_F(AccountNumberTest, PasteIsFilteredToo) {
  WhileUp([&](FormUser& user) {
    user.Paste(form.txtAccount, "12-ab c");
    EXPECT_EQ(form.txtAccount.Text(), "12ABC");
  });
}

TEST_F(AccountNumberTest, FullNumberMovesOn) {
  WhileUp([&](FormUser& user) {
    user.Type("123456782rt0001");
    EXPECT_EQ(FocusName(), "txtNext");
    EXPECT_EQ(form.txtAccount.Text(), "123456782RT0001");
  });
  EXPECT_TRUE(toolkit.boxes.empty());
}

TEST_F(AccountNumberTest, IsCheckedWhenItIsLeft) {
  EXPECT_THAT(Left("123456782RT0001"), ElementsAre());
  for (const char* bad : {"", "123456782RT001", "123456783RT0001", "123456782XX0001", "12345678ART0001",
                          "123456782RT000A", "123456782TR0001", "2234567E8RT0001", "1E0000009RT0001"})
    EXPECT_THAT(Left(bad), ElementsAre(kInvalid)) << bad;
}

TEST_F(AccountNumberTest, KeepsTheFocusUntilItIsValidOrCancelled) {
  WhileUp([&](FormUser& user) {
    user.Type("1");
    user.Key("Tab");
    EXPECT_EQ(FocusName(), "txtAccount");
    EXPECT_THAT(TakeTexts(), ElementsAre(kInvalid));
    user.acts.Press(form.cmdCancel);
    EXPECT_EQ(FocusName(), "cmdCancel");
    EXPECT_THAT(TakeTexts(), ElementsAre());
  });
}

}  // namespace
}  // namespace fiscalon
