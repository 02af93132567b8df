#include "screens/quebec/qst_return.h"

#include <string>

#include "screens/parts/return_balance.h"
#include "screens/parts/slots.h"

namespace fiscalon {
namespace {

struct CaptionChange {
  Label& label;
  std::string_view from = {};
  std::string_view to = {};
};

std::string Replaced(std::string text, std::string_view from, std::string_view to) {
  for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
  return text;
}

}  // namespace

void frmQue_Rev_QST::CompCode(std::string_view text) {
  Screen::CompCode(text);
  SetQSTGSTCaptions();
}

void frmQue_Rev_QST::SetQSTGSTCaptions() {
  if (!IsForGST())
    return;
  Caption("Quebec GST/HST Remittance");
  const CaptionChange changes[] = {{lblSupplies, "201", "101"},
                                   {tax.CollectibleCaption, "205", "105"},
                                   {tax.CollectibleCaption, "QST", "GST/HST"},
                                   {tax.CreditsCaption, "ITR", "ITC"},
                                   {tax.CreditsCaption, "208", "108"},
                                   {tax.InstalmentsCaption, "210", "110"},
                                   {tax.InstalmentsCaption, "QST", "GST/HST"},
                                   {tax.PayableCaption, "213", "113"},
                                   {tax.PayableCaption, "QST", "GST/HST"},
                                   {tax.RebatesCaption, "QST", "GST/HST"},
                                   {tax.RebatesCaption, "211", "111"}};
  for (const CaptionChange& change : changes)
    change.label.Caption(std::string_view(Replaced(change.label.Caption(), change.from, change.to)));
}

void frmQue_Rev_QST::SetupForm() {
  head.Show(Payment());
  lblNewHousingRebates.Visible(IsForGST());
  txtNewHousingRebates.Visible(IsForGST());
}

bool frmQue_Rev_QST::ValidateForm() {
  return TestBalance(tax.Payable, head, tax.Collectible) != Balance::Refused;
}

void frmQue_Rev_QST::DoWrite() {
  BeginRecords();
  SendRecord(GovernmentRecord({.periodStartDate = period.From.Text(), .periodEndDate = period.To.Text()}));
  SendRecord(FreeRecord({AmountSlot("01", txtSupplies), AmountSlot("02", tax.Collectible),
                         AmountSlot("03", tax.Credits), AmountSlot("04", tax.Instalments)}));
  SendRecord(FreeRecord({AmountSlot("05", tax.Payable), AmountSlot("06", tax.Rebates),
                         IsForQST() ? ZeroSlot("07") : AmountSlot("07", txtNewHousingRebates), ZeroSlot("08")}));
  EndRecords();
}

}  // namespace fiscalon
