#pragma once

#include "core/forms/button.h"
#include "core/forms/label.h"
#include "core/forms/list_control.h"
#include "core/screen.h"

namespace fiscalon {

/// The screen of these tests, code "15": a control of each kind, and buttons that do what a scenario can expect. The
/// code "16" belongs to a form that fails to load.
class PlayedScreen final : public Screen {
  using Self = PlayedScreen;

 public:
  PlayedScreen() : Screen("frmPlayed", "A form to be played") {}

  // clang-format off
  TextField    txtA         {*this, "txtA",         {.tabIndex = 0, .maxLength = 5}, {.change = On(&Self::txtA_Change)}};
  TextField    txtLocked    {*this, "txtLocked",    {.tabIndex = 1, .locked = true}, {.keyDown = On(&Self::txtLocked_KeyDown), .keyPress = On(&Self::txtLocked_KeyPress)}};
  CheckBox     chk          {*this, "chk",          {.caption = "&Checked", .tabIndex = 2}};
  OptionButton optA         {*this, "optA",         {.caption = "A", .tabIndex = 3}};
  OptionButton optB         {*this, "optB",         {.caption = "B", .tabIndex = 4}};
  DropDownList cmb          {*this, "cmb",          {.tabIndex = 5}, {.click = On(&Self::cmb_Click)}};
  ListBox      lst          {*this, "lst",          {.tabIndex = 6}};
  Frame        fra          {*this, "fra",          {.caption = "Frame"}};
  Button       cmdInside    {*this, "cmdInside",    {.caption = "Inside", .tabIndex = 7, .frame = &fra}, {}};
  Label        lblSeen      {*this, "lblSeen",      {.caption = "Seen"}};
  Label        lblNow       {*this, "lblNow",       {}};
  Label        lblSeparator {*this, "lblSeparator", {}};
  Label        lblLines     {*this, "lblLines",     {}};
  Label        lblKeys      {*this, "lblKeys",      {}};
  Label        lblRow0      {*this, "lblRow(0)",    {}};
  Label        lblRow1      {*this, "lblRow(1)",    {}};
  Button       cmdBox       {*this, "cmdBox",       {.caption = "One box"},   {.click = On(&Self::cmdBox_Click)}};
  Button       cmdTwo       {*this, "cmdTwo",       {.caption = "Two boxes"}, {.click = On(&Self::cmdTwo_Click)}};
  Button       cmdAsk       {*this, "cmdAsk",       {.caption = "A question"},{.click = On(&Self::cmdAsk_Click)}};
  Button       cmdBeep      {*this, "cmdBeep",      {.caption = "Beep"},      {.click = On(&Self::cmdBeep_Click)}};
  Button       cmdHelp      {*this, "cmdHelp",      {.caption = "Help"},      {.click = On(&Self::cmdHelp_Click)}};
  Button       cmdHide      {*this, "cmdHide",      {.caption = "Hide"},      {.click = On(&Self::cmdHide_Click)}};
  Button       cmdFail      {*this, "cmdFail",      {.caption = "Fail"},      {.click = On(&Self::cmdFail_Click)}};
  Button       cmdInvoice   {*this, "cmdInvoice",   {.caption = "Invoice"},   {.click = On(&Self::cmdInvoice_Click)}};
  Button       cmdOK        {*this, "cmdOK",        {.caption = "&OK"},       {.click = On(&Self::cmdOK_Click)}};
  Button       cmdCancel    {*this, "cmdCancel",    {.caption = "Cancel", .cancel = true}, {.click = On(&Self::Cancelled)}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

 private:
  void Form_Load() override;
  /// Shows the text in a label.
  void txtA_Change();
  /// They write down in a label which keys the field hears of: code and shift state, and character.
  void txtLocked_KeyDown(int& keyCode, int shift);
  void txtLocked_KeyPress(int& character);
  void cmb_Click();
  void cmdBox_Click();
  void cmdTwo_Click();
  void cmdAsk_Click();
  void cmdBeep_Click();
  void cmdHelp_Click();
  void cmdHide_Click();
  void cmdFail_Click();
  void cmdInvoice_Click();
  void cmdOK_Click();

  Layout layout_;
};

}  // namespace fiscalon
