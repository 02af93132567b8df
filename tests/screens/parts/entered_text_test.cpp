#include "screens/parts/entered_text.h"

#include "tests/support/part_test.h"

namespace fiscalon {
namespace {

class EnteredForm : public PartForm {
 public:
  TextField txtA{*this, "txtA", {}};
};

class EnteredText : public PartTest<EnteredForm> {};

TEST_F(EnteredText, IsTrimmedInTheField) {
  form.txtA.Text("  1 2 ");
  EXPECT_EQ(TrimText(form.txtA), "1 2");
  EXPECT_EQ(form.txtA.Text(), "1 2");
}

TEST_F(EnteredText, NumbersBeyondTheirTypesCountAsZero) {
  EXPECT_EQ(NumberIn("1E400"), 0);
  EXPECT_EQ(NumberIn("12.5 dollars"), 12.5);
  EXPECT_EQ(AmountIn("1E30"), Money());
  EXPECT_EQ(AmountIn("12.5"), Money::FromUnits(125000));
}

}  // namespace
}  // namespace fiscalon
