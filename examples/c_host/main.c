/* A host program in C: it knows a payment, lets screen "15" ask for the rest, and takes the records over. A routine
 * stands in for the user here, so it needs no display; an operator's program asks for the front end "qt", "win32" or
 * "terminal" in the same place. */

#include <stdio.h>
#include <string.h>

#include <fiscalon/c.h>

/* What a user would do: a taxation year end, the amount in cents, OK. */
static int FillAndConfirm(void* context, fiscalon_form* form) {
  (void)context;
  if (fiscalon_form_type(form, "202412") != 0 || /* the sixth digit moves on to the amount */
      fiscalon_form_type(form, "12345") != 0)
    return -1;
  return fiscalon_form_click(form, "cmdOK");
}

static int TellABox(void* context, const fiscalon_box* box, int32_t* answer) {
  (void)context;
  fprintf(stderr, "The screen says: %s\n", box->text);
  *answer = box->default_answer;
  return 0;
}

static int TellTheError(void) {
  fiscalon_error error;
  error.size = sizeof error;
  fiscalon_last_error(&error);
  fprintf(stderr, "%s: error %d: %s\n", error.source, (int)error.number, error.description);
  return 2;
}

int main(void) {
  fiscalon_payment* payment = NULL;
  fiscalon_records* records = NULL;
  int32_t chosen = 0, count = 0, i;
  fiscalon_scripted_user user;
  memset(&user, 0, sizeof user);
  user.size = sizeof user; /* by which the library knows your header's version */
  user.on_form = FillAndConfirm;
  user.on_box = TellABox;
  if (fiscalon_use_scripted_user(&user) != 0)
    return TellTheError();

  if (fiscalon_payment_create(&payment) != 0 || fiscalon_payment_set_comp_name(payment, "Summit Levies") != 0 ||
      fiscalon_payment_set_paid_amount(payment, "12345") != 0 ||  /* cents */
      fiscalon_payment_set_paid_date(payment, "06152026") != 0 || /* month, day, year */
      fiscalon_payment_set_enter_name(payment, "H\xC3\xA9l\xC3\xA8ne C\xC3\xB4t\xC3\xA9") != 0 ||
      fiscalon_payment_set_enter_title(payment, "Clerk") != 0 || fiscalon_payment_set_seq_number(payment, "0001") != 0)
    return TellTheError();

  if (fiscalon_payment_show(payment, "15", &chosen) != 0)
    return TellTheError();
  if (!chosen) {
    fprintf(stderr, "Cancelled.\n");
    return 1;
  }

  if (fiscalon_payment_get_pc4_records(payment, &records) != 0 || fiscalon_records_count(records, &count) != 0)
    return TellTheError();
  for (i = 1; i <= count; ++i) {
    fiscalon_record* record = NULL;
    const char* text = NULL;
    if (fiscalon_records_item_at(records, i, &record) != 0 || fiscalon_record_get_description(record, &text) != 0)
      return TellTheError();
    puts(text);
    fiscalon_record_destroy(&record);
  }
  fiscalon_records_destroy(&records);
  fiscalon_payment_destroy(&payment);
  return 0;
}
