#include "bindings/c/front_ends.h"
#include "bindings/c/handle_objects.h"
#include "bindings/c/text_property.h"

/// The payment session.
using namespace fiscalon::c;

extern "C" {

int fiscalon_payment_create(fiscalon_payment** payment) {
  return AnswerAt(payment, [] {
    // It asks for the user's locale, by which batches judge.
    ExpectNoBatch();
    return NewHandle<fiscalon_payment>(std::make_shared<HandleOf<fiscalon_payment>::Object>());
  });
}
int fiscalon_payment_destroy(fiscalon_payment** payment) {
  return Destroy(payment);
}

FISCALON_TEXT_PROPERTY(fiscalon_payment, zelmor_number, ZelmorNumber)
FISCALON_TEXT_PROPERTY(fiscalon_payment, comp_code, CompCode)
FISCALON_TEXT_PROPERTY(fiscalon_payment, comp_name, CompName)
FISCALON_TEXT_PROPERTY(fiscalon_payment, account_number, AccountNumber)
FISCALON_TEXT_PROPERTY(fiscalon_payment, paid_amount, PaidAmount)
FISCALON_TEXT_PROPERTY(fiscalon_payment, paid_date, PaidDate)
FISCALON_TEXT_PROPERTY(fiscalon_payment, number_of_info_collect, NumberOfInfoCollect)
FISCALON_TEXT_PROPERTY(fiscalon_payment, gov_filename, GovFilename)
FISCALON_TEXT_PROPERTY(fiscalon_payment, enter_name, EnterName)
FISCALON_TEXT_PROPERTY(fiscalon_payment, enter_title, EnterTitle)
FISCALON_TEXT_PROPERTY(fiscalon_payment, seq_number, SeqNumber)
FISCALON_TEXT_PROPERTY(fiscalon_payment, business_name, BusinessName)
FISCALON_COLLECTION_PROPERTY(fiscalon_payment, pc4_records, PC4Records, fiscalon_records)

int fiscalon_payment_get_ap_hold_flg(fiscalon_payment* payment, int32_t* flag) {
  return AnswerAt(flag, [&] { return Of(payment)->core.APHoldFlg(); });
}
int fiscalon_payment_set_ap_hold_flg(fiscalon_payment* payment, int32_t flag) {
  return Answer([&] { Of(payment)->core.APHoldFlg(flag); });
}
int fiscalon_payment_get_show_gst58(fiscalon_payment* payment, int32_t* shown) {
  return AnswerAt(shown, [&] { return Of(payment)->core.ShowGST58() ? 1 : 0; });
}
int fiscalon_payment_get_write_file(fiscalon_payment* payment, int32_t* flag) {
  return AnswerAt(flag, [&] { return static_cast<int16_t>(Of(payment)->core.WriteFile()); });
}
int fiscalon_payment_set_write_file(fiscalon_payment* payment, int32_t flag) {
  return Answer([&] { Of(payment)->core.WriteFile(flag); });
}

int fiscalon_payment_show(fiscalon_payment* payment, const char* screen_code, int32_t* chosen) {
  return AnswerAt(
      chosen,
      [&] {
        // The host may let go of the payment while its form is up.
        const auto owned = Of(payment);
        const std::string code = FromHost(screen_code);
        ExpectFrontEndOfThisThread();
        const ScreenTurn screen;
        return owned->core.ShowLevyraScreen(code) ? 1 : 0;
      },
      "Fiscalon.ShowLevyraScreen");
}

}  // extern "C"
