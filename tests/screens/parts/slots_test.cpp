#include "screens/parts/slots.h"

#include "tests/support/part_test.h"

namespace fiscalon {
namespace {

class SlotForm : public PartForm {
 public:
  TextField Field{*this, "Field", {}};
};

class Slots : public PartTest<SlotForm> {
 protected:
  const TextField& Holding(std::string_view text) {
    form.Field.Text(text);
    return form.Field;
  }
};

TEST_F(Slots, BearTheirNumber) {
  EXPECT_EQ(NumberSlot("01", 1.0).fieldNum, "01");
  EXPECT_EQ(NumberSlot("02", Money()).fieldNum, "02");
  EXPECT_EQ(TextSlot("03", form.Field).fieldNum, "03");
  EXPECT_EQ(AmountSlot("04", form.Field).fieldNum, "04");
  EXPECT_EQ(CentsSlot("05", form.Field).fieldNum, "05");
  EXPECT_EQ(LocaleCentsSlot("06", Holding("1")).fieldNum, "06");
  EXPECT_EQ(ZeroSlot("07").fieldNum, "07");
}

TEST_F(Slots, HoldNumbersTrimmedTextsAndZeros) {
  EXPECT_EQ(NumberSlot("01", 12.0).fieldValue, "000000000000000012");
  EXPECT_EQ(NumberSlot("01", Money::FromUnits(120000)).fieldValue, "000000000000000012");
  EXPECT_EQ(TextSlot("01", Holding(" 20260101 ")).fieldValue, "20260101");
  EXPECT_EQ(ZeroSlot("01").fieldValue, "000000000000000000");
}

TEST_F(Slots, HoldDollarsInCentsByTwoRulesThatDifferBelowZero) {
  EXPECT_EQ(AmountSlot("01", Holding("123.45")).fieldValue, "000000000000012345");
  EXPECT_EQ(CentsSlot("01", Holding("123.45")).fieldValue, "000000000000012345");
  EXPECT_EQ(AmountSlot("01", Holding("-12.34")).fieldValue, "-00000000000001234");
  EXPECT_EQ(CentsSlot("01", Holding("-12.34")).fieldValue, "-000000000000001234");
}

TEST_F(Slots, ReadDollarsByTheirPointOrAsTheLocaleDoes) {
  SetLocale(FrenchCanada());
  EXPECT_EQ(CentsSlot("01", Holding("12,50")).fieldValue, "000000000000001200");
  EXPECT_EQ(LocaleCentsSlot("01", Holding(" 12,50 ")).fieldValue, "000000000000001250");
}

TEST_F(Slots, MultiplyALocalesNumberBeforeItIsMoney) {
  // As money the text would be 12.345, and its cents 1235.
  EXPECT_EQ(LocaleCentsSlot("01", Holding("12.34499")).fieldValue, "000000000000001234");
}

TEST_F(Slots, RefuseATextThatIsNoNumberUnderTheLocale) {
  EXPECT_EQ(ErrorOf([&] { LocaleCentsSlot("01", Holding("")); }), 13);
  EXPECT_EQ(ErrorOf([&] { LocaleCentsSlot("01", Holding("12x")); }), 13);
  EXPECT_EQ(ErrorOf([&] { LocaleCentsSlot("01", Holding("1E20")); }), 6);
  // Beyond all numbers, and not only beyond money.
  EXPECT_EQ(ErrorOf([&] { LocaleCentsSlot("01", Holding("1E400")); }), 6);
}

}  // namespace
}  // namespace fiscalon
