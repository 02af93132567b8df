#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/forms/control_array.h"
#include "core/screen.h"
#include "screens/parts/date_entry.h"
#include "screens/parts/help_button.h"
#include "screens/parts/payment_head.h"
#include "screens/parts/statement_choice.h"

namespace fiscalon {

/// Collects a reporting period, a due date, coded items and another amount with its details, for any biller. The host
/// says how many items this biller collects.
class GENERICFORM final : public Screen {
  using Self = GENERICFORM;

 public:
  GENERICFORM() : Screen("GENERICFORM", "Additional Information") {}

  // clang-format off
  PayeeHead       head            {*this, {.payeeTabIndex = 35, .shown = {.pattern = "#0.00", .read = AmountRead::AsText}}};
  Label           Label5          {*this, "Label5",          {.caption = "Additional Information"}};
  StatementChoice StatementOnly   {*this, "StatementOnly",   {.tabIndex = 1, .details = &PeriodStartDate,
                                                              .chosen = On(&Self::OpenDetails), .accept = On(&Self::Accepted)}};
  Label           Label21         {*this, "Label21",         {.caption = "For the period from:"}};
  DateEntry       PeriodStartDate {*this, "PeriodStartDate", {.tabIndex = 3, .maxLength = 8},
                                   {.whenFull = &PeriodEndDate, .onEnter = kStartOnEnter, .next = &PeriodEndDate,
                                    .waysOut = {Command3D4, Command3D5}, .nameInWarning = "For the period from"}};
  Label           Label22         {*this, "Label22",         {.caption = "YYYYMMDD"}};
  Label           Label23         {*this, "Label23",         {.caption = "to:"}};
  DateEntry       PeriodEndDate   {*this, "PeriodEndDate",   {.tabIndex = 4, .maxLength = 8},
                                   {.whenFull = &DueDate, .onEnter = kEndOnEnter, .next = &DueDate,
                                    .whenLeft = DateLeft::StaysAsItIs,
                                    .waysOut = {Command3D4, Command3D5}, .nameInWarning = "to"}};
  Label           Label24         {*this, "Label24",         {.caption = "YYYYMMDD"}};
  Label           Label25         {*this, "Label25",         {.caption = "Due Date:"}};
  DateEntry       DueDate         {*this, "DueDate",         {.tabIndex = 5, .maxLength = 8},
                                   {.whenFull = [this] { return &Box[0]; }, .onEnter = kDueOnEnter, .next = [this] { return &Box[0]; },
                                    .waysOut = {Command3D4, Command3D5}, .nameInWarning = "Due Date"}};
  Label           Label26         {*this, "Label26",         {.caption = "YYYYMMDD"}};
  Label           Label6          {*this, "Label6",          {.caption = "Box:"}};
  Label           Label7          {*this, "Label7",          {.caption = "A-01"}};
  Label           Label8          {*this, "Label8",          {.caption = "B-02"}};
  Label           Label9          {*this, "Label9",          {.caption = "C-03"}};
  Label           Label10         {*this, "Label10",         {.caption = "D-04"}};
  Label           Label11         {*this, "Label11",         {.caption = "E-05"}};
  Label           Label12         {*this, "Label12",         {.caption = "F-06"}};
  Label           Label13         {*this, "Label13",         {.caption = "G-07"}};
  Label           Label14         {*this, "Label14",         {.caption = "H-08"}};
  Label           Label15         {*this, "Label15",         {.caption = "I-09"}};
  Label           Label16         {*this, "Label16",         {.caption = "J-10"}};
  Label           Label17         {*this, "Label17",         {.caption = "K-11"}};
  Label           Label18         {*this, "Label18",         {.caption = "L-12"}};
  Label           Label19         {*this, "Label19",         {.caption = "Other Amount/Comment"}};
  Label           Label27         {*this, "Label27",         {.caption = "Details:"}};
  Label           Label28         {*this, "Label28",         {.caption = "Amount:"}};
  /// The twelve items, then details and amount.
  ControlArray<TextField, 14> Box {*this, "Box",
                                   [](int i) { return FieldDesign{.tabIndex = i == 0 ? 6 : 35 + i, .maxLength = i == kDetails ? 50 : 18}; },
                                   {.keyPress = On(&Self::Box_KeyPress)}};
  Button          Command3D6      {*this, "Command3D6",      {.caption = "&OK"},     {.click = On(&Self::Command3D6_Click)}};
  Button          Command3D5      {*this, "Command3D5",      {.caption = "&Cancel"}, {.click = On(&Self::Cancelled)}};
  HelpButton      Command3D4      {*this, "Command3D4",      {.caption = "&Help"}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

  /// How many items the biller collects: a number from 1 to 12 opens as many boxes, anything else none.
  const std::string& NumberOfInfoCollect() const { return numberOfInfoCollect_; }
  void NumberOfInfoCollect(std::string_view text) { numberOfInfoCollect_ = text; }

 private:
  /// Boxes of items; behind them the pair of details and amount, which is open for every biller.
  static constexpr int kItems = 12, kDetails = 12, kAmount = 13;

  void Form_Load() override;
  void Form_Activate() override { StatementOnly[1].Value(true); }
  void Form_QueryUnload(bool& /*cancel*/, CloseReason reason) override { CancelOnClosing(reason); }
  /// Opens what belongs to a payment with details, or closes it.
  void OpenDetails();
  void Box_KeyPress(int index, int& character);

  void Command3D6_Click();
  bool DetailsAreValid();
  bool EndIsBehindStart();
  bool RequiredBoxPasses(int index);
  bool BoxesPass();
  bool OtherAmountPasses();

  void WriteRecords();
  /// The items, without those that were left empty.
  std::vector<FreeFormatSlot> FilledBoxes() const;

  // What Enter tests.
  static const DateRows kStartOnEnter, kEndOnEnter, kDueOnEnter;

  std::string numberOfInfoCollect_;
  int boxCount_ = 0;

  const Layout layout_ = {
      .groups = {head.Rows(),
                 {.heading = &Label5,
                  .rows = {{{{nullptr, &StatementOnly[0]}}},
                           {{{nullptr, &StatementOnly[1]}}},
                           {{{&Label21, &PeriodStartDate, &Label22},
                             {.caption = &Label23, .field = &PeriodEndDate, .hint = &Label24, .isClose = true}}},
                           {{{&Label25, &DueDate, &Label26}}}}},
                 {.heading = &Label6,
                  .rows = {{{{&Label7, &Box[0]}, {&Label13, &Box[6]}}},
                           {{{&Label8, &Box[1]}, {&Label14, &Box[7]}}},
                           {{{&Label9, &Box[2]}, {&Label15, &Box[8]}}},
                           {{{&Label10, &Box[3]}, {&Label16, &Box[9]}}},
                           {{{&Label11, &Box[4]}, {&Label17, &Box[10]}}},
                           {{{&Label12, &Box[5]}, {&Label18, &Box[11]}}}}},
                 {.heading = &Label19, .rows = {{{{&Label27, &Box[kDetails]}}}, {{{&Label28, &Box[kAmount]}}}}}},
      .buttons = {&Command3D6, &Command3D5, &Command3D4}};
};

}  // namespace fiscalon
