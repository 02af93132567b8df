#include "tests/frontends/played/played_screen.h"

#include <array>
#include <string>

#include "core/launch_properties.h"
#include "core/messages.h"
#include "core/module_state.h"
#include "core/platform/runtime_error.h"
#include "core/values/format.h"

namespace fiscalon {

void PlayedScreen::Form_Load() {
  Caption(AsGiven(Payment().compName));
  lblNow.Caption(AsGiven(GeneralDate(TheModule().clock->Now(), TheModule().locale)));
  lblSeparator.Caption(AsGiven(TheModule().decimalSeparator));
  lblLines.Caption("one\r\ntwo\rthree\nfour");
  for (const char* row : {"First", "Second", "two words"}) {
    cmb.AddItem(row);
    lst.AddItem(row);
  }
}

void PlayedScreen::txtA_Change() {
  lblSeen.Caption(AsGiven("Seen " + txtA.Text()));
}

void PlayedScreen::txtLocked_KeyDown(int& keyCode, int shift) {
  lblKeys.Caption(AsGiven(lblKeys.Caption() + "down " + std::to_string(keyCode) + "+" + std::to_string(shift) + " "));
}

void PlayedScreen::txtLocked_KeyPress(int& character) {
  lblKeys.Caption(AsGiven(lblKeys.Caption() + "makes " + std::to_string(character) + " "));
}

void PlayedScreen::cmb_Click() {
  lblSeen.Caption(AsGiven("Picked " + cmb.Text()));
}

void PlayedScreen::cmdBox_Click() {
  ShowMessage("A box.\r\nTwo lines.", MessageStyle::Critical);
}

void PlayedScreen::cmdTwo_Click() {
  ShowMessage("One.", MessageStyle::Exclamation);
  ShowMessage("Two.", MessageStyle::Information);
}

void PlayedScreen::cmdAsk_Click() {
  const MessageAnswer answer = TheToolkit().ShowMessage(
      {.text = "Sure?", .style = MessageStyle::Question, .buttons = MessageButtons::YesNo, .title = "A title"});
  lblSeen.Caption(answer == MessageAnswer::Yes ? "Yes" : "No");
}

void PlayedScreen::cmdBeep_Click() {
  TheToolkit().Beep();
}

void PlayedScreen::cmdHelp_Click() {
  TheToolkit().OpenHelp("/help/ZELMOR.CHM>ShowTopic", 100000004);
}

void PlayedScreen::cmdHide_Click() {
  txtA.Enabled(false);
  fra.Visible(false);
  fra.Enabled(false);
}

void PlayedScreen::cmdFail_Click() {
  Raise(error_number::kPathNotFound);
}

void PlayedScreen::cmdInvoice_Click() {
  PC4Records()->Clear();
  PC4Records()->Add("20260615", " 000012345", "A-17 ");
  Chosen(kTrue);
  Hide();
}

void PlayedScreen::cmdOK_Click() {
  BeginRecords();
  SendRecord("PC4" + Payment().seqNumber + "T " + txtA.Text() + "  ");
  SendRecord("PC4" + Payment().enterName);
  EndRecords();
  Chosen(kTrue);
  Hide();
}

namespace {

class BrokenForm final : public Screen {
 public:
  BrokenForm() : Screen("frmBroken", "A form that fails") {}
  const Layout& FormLayout() const override { return layout_; }

 private:
  void Form_Load() override { Raise(error_number::kOverflow); }

  Layout layout_;
};

template <class FormClass>
std::shared_ptr<Screen> Make() {
  return std::make_shared<FormClass>();
}

constexpr std::array kTable = {LaunchRow{"15", "ShowPlayedForm", "frmPlayed", "", kCommonOrder, Make<PlayedScreen>},
                               LaunchRow{"16", "ShowBrokenForm", "frmBroken", "", kCommonOrder, Make<BrokenForm>}};

}  // namespace

std::span<const LaunchRow> LaunchTable() {
  return kTable;
}

}  // namespace fiscalon
