#pragma once

#include <string>

#include "core/forms/control_array.h"
#include "core/screen.h"
#include "screens/parts/help_button.h"
#include "screens/parts/moving_on.h"
#include "screens/parts/payment_head.h"
#include "screens/parts/statement_choice.h"

namespace fiscalon {

/// Collects a remittance to a workers' compensation board: a period of months in one year, and up to six
/// classifications with their assessments; or the payment of a statement of account, which brings no details.
class Assessment final : public Screen {
  using Self = Assessment;

 public:
  Assessment() : Screen("Assessment", "Additional Information to Accompany Payment") {}

  static constexpr int kPairs = 6;

  // clang-format off
  PayeeHead       head             {*this, {.payee = "WCBpayeename", .date = "WCBpaiddate",
                                            .amountCaption = {.name = "Label2", .caption = "Amount to be paid:"},
                                            .amount = "WCBpaidamount"}};
  StatementChoice WCBstatementonly {*this, "WCBstatementonly", {.tabIndex = 3, .details = &WCBperiodfrommm,
                                                                .accept = On(&Self::Accepted)}};
  Label           Label7           {*this, "Label7",           {.caption = "For the period from:"}};
  TextField       WCBperiodfrommm  {*this, "WCBperiodfrommm",  {.tabIndex = 5, .maxLength = 2},
                                    {.change = OnFull(WCBperiodfrommm, &WCBperiodtomm),
                                     .keyPress = On(&Self::WCBperiodfrommm_KeyPress),
                                     .lostFocus = On(&Self::WCBperiodfrommm_LostFocus)}};
  Label           Label8           {*this, "Label8",           {.caption = "MM"}};
  Label           Label9           {*this, "Label9",           {.caption = "to:"}};
  TextField       WCBperiodtomm    {*this, "WCBperiodtomm",    {.tabIndex = 6, .maxLength = 2},
                                    {.change = OnFull(WCBperiodtomm, &WCBperiodyyyy),
                                     .keyPress = On(&Self::WCBperiodtomm_KeyPress),
                                     .lostFocus = On(&Self::WCBperiodtomm_LostFocus)}};
  TextField       WCBperiodyyyy    {*this, "WCBperiodyyyy",    {.tabIndex = 7, .maxLength = 4},
                                    {.change = OnFull(WCBperiodyyyy, [this] { return &WCBclass[0]; }),
                                     .keyPress = On(&Self::WCBperiodyyyy_KeyPress),
                                     .lostFocus = On(&Self::WCBperiodyyyy_LostFocus)}};
  Label           Label10          {*this, "Label10",          {.caption = "MM/YYYY"}};
  Label           Label23          {*this, "Label23",          {.caption = "Assessment Details"}};
  ControlArray<Label, kPairs>     ClassLabel      {*this, "ClassLabel",      &Self::ClassLabelDesign};
  ControlArray<TextField, kPairs> WCBclass        {*this, "WCBclass",
                                                   [](int i) { return FieldDesign{.tabIndex = 8 + 2 * i, .maxLength = 18}; },
                                                   {.keyPress = On(&Self::WCBclass_KeyPress)}};
  ControlArray<Label, kPairs>     AssessmentLabel {*this, "AssessmentLabel", &Self::AssessmentLabelDesign};
  ControlArray<TextField, kPairs> WCBassessment   {*this, "WCBassessment",
                                                   [](int i) { return FieldDesign{.tabIndex = 9 + 2 * i, .maxLength = 10}; },
                                                   {.keyPress = On(&Self::WCBassessment_KeyPress)}};
  Button          Command3D6       {*this, "Command3D6",       {.caption = "&OK"},     {.click = On(&Self::Command3D6_Click)}};
  Button          Command3D5       {*this, "Command3D5",       {.caption = "&Cancel"}, {.click = On(&Self::Cancelled)}};
  HelpButton      Command3D4       {*this, "Command3D4",       {.caption = "&Help"}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

 private:
  static LabelDesign ClassLabelDesign(int index);
  static LabelDesign AssessmentLabelDesign(int index);
  Group Details();

  void Form_Load() override;
  void Form_QueryUnload(bool& /*cancel*/, CloseReason reason) override { CancelOnClosing(reason); }
  void WCBperiodfrommm_KeyPress(int& character);
  void WCBperiodfrommm_LostFocus();
  void WCBperiodtomm_KeyPress(int& character);
  void WCBperiodtomm_LostFocus();
  void WCBperiodyyyy_KeyPress(int& character);
  void WCBperiodyyyy_LostFocus();
  void WCBclass_KeyPress(int index, int& character);
  /// Whether Enter may leave a classification: it is empty, or good and none of those before it.
  bool ClassIsAccepted(int index);
  void WCBassessment_KeyPress(int index, int& character);
  /// A month is left: refused in silence, or padded and accepted. False too where it is not looked at.
  bool MonthIsAccepted(TextField& month);
  /// To the buttons from which nothing is checked.
  bool FocusWentToCancelOrHelp() const { return FocusIsOn(Command3D5) || FocusIsOn(Command3D4); }

  void Command3D6_Click();
  bool PeriodIsEntered();
  /// Of the months and the year as they stand, when the year is left and on OK.
  bool PeriodIsValid();
  bool DetailsAreValid();
  bool ClassesAreUnique();
  bool IsValidPair(int index);

  void WriteRecords();
  std::string PeriodStart() const;
  std::string PeriodEnd() const;
  std::string YearText() const;
  void SendPairs();

  const Layout layout_ = {.groups = {head.Rows(),
                                     {.rows = {{{{nullptr, &WCBstatementonly[0]}}},
                                               {{{nullptr, &WCBstatementonly[1]}}},
                                               {{{&Label7, &WCBperiodfrommm, &Label8},
                                                 {&Label9, &WCBperiodtomm},
                                                 {nullptr, &WCBperiodyyyy, &Label10}}}}},
                                     Details()},
                          .buttons = {&Command3D6, &Command3D5, &Command3D4}};
};

}  // namespace fiscalon
