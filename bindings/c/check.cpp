#include "bindings/c/handle_objects.h"
#include "bindings/c/text_property.h"

/// The check of one payment.
using namespace fiscalon::c;

extern "C" {

int fiscalon_check_create(fiscalon_check** check) {
  return AnswerAt(check,
                  [] { return NewHandle<fiscalon_check>(std::make_shared<HandleOf<fiscalon_check>::Object>()); });
}
int fiscalon_check_destroy(fiscalon_check** check) {
  return Destroy(check);
}

FISCALON_TEXT_PROPERTY(fiscalon_check, screen_code, ScreenCode)
FISCALON_TEXT_PROPERTY(fiscalon_check, number_of_fields, NumberOfFields)
FISCALON_TEXT_PROPERTY(fiscalon_check, biller_code, BillerCode)
FISCALON_TEXT_PROPERTY(fiscalon_check, biller_name, BillerName)
FISCALON_TEXT_PROPERTY(fiscalon_check, payment_date, PaymentDate)
FISCALON_TEXT_PROPERTY(fiscalon_check, payment_amount, PaymentAmount)
FISCALON_TEXT_PROPERTY(fiscalon_check, invalid_reason, InvalidReason)
FISCALON_COLLECTION_PROPERTY(fiscalon_check, pc4_records, PC4Records, fiscalon_records)
FISCALON_COLLECTION_PROPERTY(fiscalon_check, pc4_gov_format_records, PC4GovFormatRecords, fiscalon_gov_formats)
FISCALON_COLLECTION_PROPERTY(fiscalon_check, pc4_free_format_records, PC4FreeFormatRecords, fiscalon_free_formats)

int fiscalon_check_is_info_valid(fiscalon_check* check, int32_t* valid) {
  return AnswerAt(valid, [&] { return Of(check)->core.IsInfoValid() ? 1 : 0; });
}

}  // extern "C"
