#include "screens/parts/tax_lines.h"

#include "tests/support/part_test.h"

namespace fiscalon {
namespace {

using testing::ElementsAre;

class TaxForm : public PartForm {
 public:
  // clang-format off
  const AmountRule amounts = {.cancel = cmdCancel, .recalculate = [this] { tax.Recalculate(); }};

  TaxLines    tax         {*this, amounts, {.collectible = {"Duty",     "Duty (1):"},
                                            .credits     = {"Credits",  "Credits (2):"},
                                            .instalments = {"Paid",     "Paid (3):"},
                                            .rebates     = {"Rebates",  "Rebates (4):"},
                                            .payable     = {"Payable",  "Payable (5):"},
                                            .tabIndex = 3, .payableTabIndex = 17, .next = &cmdOK}};
  Label       lblAhead    {*this, "lblAhead",  {.caption = "Ahead"}};
  Label       lblBehind   {*this, "lblBehind", {.caption = "Behind"}};
  Button      cmdOK       {*this, "cmdOK",     {.caption = "&OK"}, {}};
  Button      cmdCancel   {*this, "cmdCancel", {.caption = "Cancel", .cancel = true}, {}};
  // clang-format on
};

class TaxLinesTest : public PartTest<TaxForm> {
 protected:
  std::string Payable(std::string_view collectible, std::string_view credits, std::string_view instalments,
                      std::string_view rebates) {
    form.tax.Collectible.Text(collectible);
    form.tax.Credits.Text(credits);
    form.tax.Instalments.Text(instalments);
    form.tax.Rebates.Text(rebates);
    form.tax.Recalculate();
    return form.tax.Payable.Text();
  }
};

TEST_F(TaxLinesTest, FieldsAndLabelsBearTheFormsNames) {
  EXPECT_EQ(form.FindControl("lblDuty"), &form.tax.CollectibleCaption);
  EXPECT_EQ(form.FindControl("txtDuty"), &form.tax.Collectible);
  EXPECT_EQ(form.FindControl("lblCredits"), &form.tax.CreditsCaption);
  EXPECT_EQ(form.FindControl("txtCredits"), &form.tax.Credits);
  EXPECT_EQ(form.FindControl("lblPaid"), &form.tax.InstalmentsCaption);
  EXPECT_EQ(form.FindControl("txtPaid"), &form.tax.Instalments);
  EXPECT_EQ(form.FindControl("lblRebates"), &form.tax.RebatesCaption);
  EXPECT_EQ(form.FindControl("txtRebates"), &form.tax.Rebates);
  EXPECT_EQ(form.FindControl("lblPayable"), &form.tax.PayableCaption);
  EXPECT_EQ(form.FindControl("txtPayable"), &form.tax.Payable);
  EXPECT_EQ(form.tax.CollectibleCaption.Caption(), "Duty (1):");
  EXPECT_EQ(form.tax.CreditsCaption.Caption(), "Credits (2):");
  EXPECT_EQ(form.tax.InstalmentsCaption.Caption(), "Paid (3):");
  EXPECT_EQ(form.tax.RebatesCaption.Caption(), "Rebates (4):");
  EXPECT_EQ(form.tax.PayableCaption.Caption(), "Payable (5):");
}

TEST_F(TaxLinesTest, LinesFollowEachOtherInTheTabOrder) {
  EXPECT_EQ(form.tax.Collectible.Designed().tabIndex, 3);
  EXPECT_EQ(form.tax.Credits.Designed().tabIndex, 4);
  EXPECT_EQ(form.tax.Instalments.Designed().tabIndex, 5);
  EXPECT_EQ(form.tax.Rebates.Designed().tabIndex, 6);
  EXPECT_EQ(form.tax.Payable.Designed().tabIndex, 17);
  EXPECT_FALSE(form.tax.Payable.Designed().tabStop);
  EXPECT_TRUE(form.tax.PayableCaption.Designed().bold);
}

TEST_F(TaxLinesTest, CreditsInstalmentsAndRebatesAreTakenFromTheTax) {
  EXPECT_EQ(Payable("1000.00", "200.00", "30.00", "4.00"), "766.00");
  EXPECT_EQ(Payable("", "200.00", "", "0.05"), "-200.05");
  EXPECT_EQ(Payable("", "", "", ""), "0.00");
}

TEST_F(TaxLinesTest, PayableStaysAsItWasBeyondMoney) {
  EXPECT_EQ(Payable("1.00", "", "", ""), "1.00");
  EXPECT_EQ(Payable("9999999999999999", "", "", ""), "1.00");
}

TEST_F(TaxLinesTest, FullLinesMoveOnAndAreCheckedWhenLeft) {
  WhileUp([&](FormUser& user) {
    for (const char* next : {"txtCredits", "txtPaid", "txtRebates", "cmdOK"}) {
      user.Type("000000000100");
      EXPECT_EQ(FocusName(), next);
    }
    EXPECT_EQ(form.tax.Payable.Text(), "-2.00");
  });
}

TEST_F(TaxLinesTest, AmountsAreRefusedByTheirLabels) {
  WhileUp([&](FormUser& user) {
    for (TextField* field :
         {static_cast<TextField*>(&form.tax.Collectible), static_cast<TextField*>(&form.tax.Credits),
          static_cast<TextField*>(&form.tax.Instalments), static_cast<TextField*>(&form.tax.Rebates)}) {
      field->SetFocus();
      field->Text("-1");
      user.acts.Press(form.cmdOK);
      field->Text("");
    }
  });
  EXPECT_THAT(TakeTexts(), ElementsAre("Duty (1): cannot be negative.", "Credits (2): cannot be negative.",
                                       "Paid (3): cannot be negative.", "Rebates (4): cannot be negative."));
}

TEST_F(TaxLinesTest, PayableStandsLastBehindTheFormsOwnLines) {
  const Group group = form.tax.Rows({{{{&form.lblAhead}}}}, {{{{&form.lblBehind}}}});
  std::vector<const Control*> captions;
  std::vector<const Control*> fields;
  for (const Row& row : group.rows) {
    captions.push_back(row.cells.at(0).caption);
    fields.push_back(row.cells.at(0).field);
  }
  EXPECT_THAT(captions, ElementsAre(&form.lblAhead, &form.tax.CollectibleCaption, &form.tax.CreditsCaption,
                                    &form.tax.InstalmentsCaption, &form.tax.RebatesCaption, &form.lblBehind,
                                    &form.tax.PayableCaption));
  EXPECT_THAT(fields, ElementsAre(nullptr, &form.tax.Collectible, &form.tax.Credits, &form.tax.Instalments,
                                  &form.tax.Rebates, nullptr, &form.tax.Payable));
}

}  // namespace
}  // namespace fiscalon
