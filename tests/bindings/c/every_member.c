/* A host in C that calls every function of the interface, each as it should be called and, where that can fail, as it
 * should not. It is compiled as C99 and as C++, and run under a checker of memory too. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <fiscalon/c.h>

static int mistakes = 0;

/* The places of a text's end that a failed claim quotes. */
static void Claim(int holds, int line, const char* what) {
  fiscalon_error error;
  if (holds)
    return;
  error.size = sizeof error;
  fiscalon_last_error(&error);
  ++mistakes;
  printf("%d: %s (the last error is %d, %s: %s)\n", line, what, (int)error.number, error.source, error.description);
}
#define CLAIM(what) Claim(what, __LINE__, #what)
#define OK(call) CLAIM((call) == 0)

/* The call fails with that number, and says something. */
static void ClaimError(int answer, int32_t number, int line, const char* what) {
  fiscalon_error error;
  error.size = sizeof error;
  Claim(answer == -1 && fiscalon_last_error(&error) == 0 && error.number == number && error.source[0] != '\0' &&
            error.description[0] != '\0',
        line, what);
}
#define FAILS(number, call) ClaimError(call, number, __LINE__, #call)

static int Is(const char* text, const char* expected) {
  return text != NULL && strcmp(text, expected) == 0;
}

static const char kNoUtf8[] = "caf\xE9";
static const char kNotInTheCodePage[] = "\xCE\xA9"; /* a Greek capital */
static const char kAccents[] = "H\xC3\xA9l\xC3\xA8ne \xE2\x82\xAC";

/* A text that is written and read back; as it is, but for amounts. The variables are those of each test. */
#define TEXT_OF(handle, object, name, written, read)             \
  do {                                                           \
    const char* got = NULL;                                      \
    OK(handle##_get_##name(object, &got));                       \
    CLAIM(Is(got, ""));                                          \
    OK(handle##_set_##name(object, written));                    \
    OK(handle##_get_##name(object, &got));                       \
    CLAIM(Is(got, read));                                        \
    FAILS(1001, handle##_set_##name(object, NULL));              \
    FAILS(1003, handle##_set_##name(object, kNoUtf8));           \
    FAILS(1003, handle##_set_##name(object, kNotInTheCodePage)); \
    OK(handle##_get_##name(object, &got));                       \
    CLAIM(Is(got, read));                                        \
    FAILS(1001, handle##_get_##name(object, NULL));              \
    FAILS(91, handle##_set_##name(NULL, written));               \
    FAILS(91, handle##_get_##name(NULL, &got));                  \
    CLAIM(got == NULL);                                          \
  } while (0)

static void TestTextsOfAPayment(void) {
  fiscalon_payment* payment = NULL;
  OK(fiscalon_payment_create(&payment));
  TEXT_OF(fiscalon_payment, payment, zelmor_number, "1234567", "1234567");
  TEXT_OF(fiscalon_payment, payment, comp_code, "001052", "001052");
  TEXT_OF(fiscalon_payment, payment, comp_name, kAccents, kAccents);
  TEXT_OF(fiscalon_payment, payment, account_number, "42", "42");
  TEXT_OF(fiscalon_payment, payment, paid_amount, "12345", "123.45");
  TEXT_OF(fiscalon_payment, payment, paid_date, "06152026", "06152026");
  TEXT_OF(fiscalon_payment, payment, number_of_info_collect, "5", "5");
  TEXT_OF(fiscalon_payment, payment, gov_filename, "a file", "a file");
  TEXT_OF(fiscalon_payment, payment, enter_name, kAccents, kAccents);
  TEXT_OF(fiscalon_payment, payment, enter_title, "Clerk", "Clerk");
  TEXT_OF(fiscalon_payment, payment, seq_number, "0001", "0001");
  TEXT_OF(fiscalon_payment, payment, business_name, "Summit", "Summit");
  {
    const char* dollars = NULL;
    OK(fiscalon_payment_set_paid_amount(payment, "5"));
    OK(fiscalon_payment_get_paid_amount(payment, &dollars));
    CLAIM(Is(dollars, ".05"));
    OK(fiscalon_payment_set_paid_amount(payment, "abc"));
    OK(fiscalon_payment_get_paid_amount(payment, &dollars));
    CLAIM(Is(dollars, "0"));
    FAILS(6, fiscalon_payment_set_paid_amount(payment, "1e999"));
  }
  OK(fiscalon_payment_destroy(&payment));
}

static void TestNumbersOfAPayment(void) {
  fiscalon_payment* payment = NULL;
  int32_t number = 7;
  FAILS(1001, fiscalon_payment_create(NULL));
  OK(fiscalon_payment_create(&payment));
  OK(fiscalon_payment_get_ap_hold_flg(payment, &number));
  CLAIM(number == 0);
  OK(fiscalon_payment_set_ap_hold_flg(payment, 255));
  FAILS(6, fiscalon_payment_set_ap_hold_flg(payment, 256));
  FAILS(6, fiscalon_payment_set_ap_hold_flg(payment, -1));
  OK(fiscalon_payment_get_ap_hold_flg(payment, &number));
  CLAIM(number == 255);
  FAILS(91, fiscalon_payment_get_ap_hold_flg(NULL, &number));
  CLAIM(number == 0);
  FAILS(91, fiscalon_payment_set_ap_hold_flg(NULL, 1));
  FAILS(1001, fiscalon_payment_get_ap_hold_flg(payment, NULL));

  OK(fiscalon_payment_get_write_file(payment, &number));
  CLAIM(number == 0);
  OK(fiscalon_payment_set_write_file(payment, FISCALON_TRUE));
  OK(fiscalon_payment_get_write_file(payment, &number));
  CLAIM(number == -1);
  OK(fiscalon_payment_set_write_file(payment, 1));
  OK(fiscalon_payment_get_write_file(payment, &number));
  CLAIM(number == 1);
  FAILS(6, fiscalon_payment_set_write_file(payment, 65536));
  FAILS(91, fiscalon_payment_set_write_file(NULL, 0));
  FAILS(91, fiscalon_payment_get_write_file(NULL, &number));

  number = 7;
  OK(fiscalon_payment_get_show_gst58(payment, &number));
  CLAIM(number == 0);
  FAILS(91, fiscalon_payment_get_show_gst58(NULL, &number));
  OK(fiscalon_payment_destroy(&payment));
}

static void TestDestroyedHandles(void) {
  fiscalon_payment* payment = NULL;
  fiscalon_payment* copy = NULL;
  fiscalon_check* check = NULL;
  const char* text = NULL;
  OK(fiscalon_payment_create(&payment));
  copy = payment;
  OK(fiscalon_payment_destroy(&payment));
  CLAIM(payment == NULL);
  OK(fiscalon_payment_destroy(&payment));
  FAILS(1001, fiscalon_payment_destroy(NULL));
  FAILS(91, fiscalon_payment_get_comp_name(payment, &text));
  FAILS(1002, fiscalon_payment_get_comp_name(copy, &text));
  /* Another one in its place is not the one that it was. */
  OK(fiscalon_payment_create(&payment));
  CLAIM(payment != copy);
  FAILS(1002, fiscalon_payment_set_comp_name(copy, "x"));
  FAILS(1002, fiscalon_payment_destroy(&copy));
  /* Nor is one of another kind, nor any number. */
  FAILS(1002, fiscalon_check_get_screen_code((fiscalon_check*)(void*)payment, &text));
  check = (fiscalon_check*)(void*)&text;
  FAILS(1002, fiscalon_check_get_screen_code(check, &text));
  OK(fiscalon_payment_destroy(&payment));
}

/* The operations of a collection, on one with three members: "one", one without a key, and "three". */
#define COLLECTION_OF(collection, member, field, name, add)           \
  do {                                                                \
    collection* list = NULL;                                          \
    collection* same = NULL;                                          \
    member* item = NULL;                                              \
    member* kept = NULL;                                              \
    const char* text = NULL;                                          \
    int32_t number = 7;                                               \
    FAILS(1001, collection##_create(NULL));                           \
    OK(collection##_create(&list));                                   \
    OK(collection##_count(list, &number));                            \
    CLAIM(number == 0);                                               \
    OK(collection##_clear(list));                                     \
    OK(add(list, "a", "one", &item));                                 \
    OK(name(item, &text));                                            \
    CLAIM(Is(text, "a"));                                             \
    OK(member##_destroy(&item));                                      \
    OK(add(list, kAccents, "", NULL));                                \
    OK(add(list, "c", "three", NULL));                                \
    FAILS(457, add(list, "d", "three", &item));                       \
    CLAIM(item == NULL);                                              \
    FAILS(1003, add(list, kNoUtf8, NULL, &item));                     \
    FAILS(91, add(NULL, "a", NULL, &item));                           \
    OK(collection##_count(list, &number));                            \
    CLAIM(number == 3);                                               \
    FAILS(1001, collection##_count(list, NULL));                      \
    FAILS(91, collection##_count(NULL, &number));                     \
    OK(collection##_item_at(list, 2, &item));                         \
    OK(name(item, &text));                                            \
    CLAIM(Is(text, kAccents));                                        \
    OK(member##_destroy(&item));                                      \
    OK(collection##_item_of(list, "three", &kept));                   \
    OK(name(kept, &text));                                            \
    CLAIM(Is(text, "c"));                                             \
    FAILS(9, collection##_item_at(list, 0, &item));                   \
    FAILS(9, collection##_item_at(list, 4, &item));                   \
    FAILS(9, collection##_item_at(list, INT64_C(4294967297), &item)); \
    FAILS(9, collection##_item_at(list, -1, &item));                  \
    FAILS(5, collection##_item_of(list, "Three", &item));             \
    FAILS(5, collection##_item_of(list, "", &item));                  \
    FAILS(1001, collection##_item_of(list, NULL, &item));             \
    FAILS(1001, collection##_item_of(list, "one", NULL));             \
    FAILS(91, collection##_item_at(NULL, 1, &item));                  \
    FAILS(91, collection##_item_of(NULL, "one", &item));              \
    OK(collection##_is_same(list, list, &number));                    \
    CLAIM(number == 1);                                               \
    OK(collection##_create(&same));                                   \
    OK(collection##_is_same(list, same, &number));                    \
    CLAIM(number == 0);                                               \
    FAILS(91, collection##_is_same(list, NULL, &number));             \
    OK(collection##_destroy(&same));                                  \
    FAILS(5, collection##_remove_of(list, "two"));                    \
    FAILS(1001, collection##_remove_of(list, NULL));                  \
    FAILS(9, collection##_remove_at(list, 4));                        \
    FAILS(91, collection##_remove_at(NULL, 1));                       \
    FAILS(91, collection##_remove_of(NULL, "one"));                   \
    OK(collection##_remove_of(list, "one"));                          \
    FAILS(5, collection##_item_of(list, "one", &item));               \
    OK(collection##_remove_at(list, 2));                              \
    FAILS(5, collection##_item_of(list, "three", &item));             \
    OK(collection##_count(list, &number));                            \
    CLAIM(number == 1);                                               \
    OK(collection##_clear(list));                                     \
    OK(collection##_count(list, &number));                            \
    CLAIM(number == 0);                                               \
    FAILS(91, collection##_clear(NULL));                              \
    /* What has been taken stays what it was. */                      \
    OK(name(kept, &text));                                            \
    CLAIM(Is(text, "c"));                                             \
    OK(collection##_destroy(&list));                                  \
    OK(name(kept, &text));                                            \
    CLAIM(Is(text, "c"));                                             \
    OK(member##_destroy(&kept));                                      \
    OK(member##_destroy(&kept));                                      \
    OK(collection##_destroy(&list));                                  \
  } while (0)

static int AddRecord(fiscalon_records* list, const char* text, const char* key, fiscalon_record** added) {
  return fiscalon_records_add(list, NULL, NULL, text, key, added);
}
static int AddGovFormat(fiscalon_gov_formats* list, const char* text, const char* key, fiscalon_gov_format** added) {
  return fiscalon_gov_formats_add(list, NULL, NULL, NULL, NULL, text, NULL, NULL, key, added);
}
static int AddFreeFormat(fiscalon_free_formats* list, const char* text, const char* key, fiscalon_free_format** added) {
  return fiscalon_free_formats_add(list, NULL, text, key, added);
}

static void TestCollections(void) {
  COLLECTION_OF(fiscalon_records, fiscalon_record, description, fiscalon_record_get_description, AddRecord);
  COLLECTION_OF(fiscalon_gov_formats, fiscalon_gov_format, contact_name, fiscalon_gov_format_get_contact_name,
                AddGovFormat);
  COLLECTION_OF(fiscalon_free_formats, fiscalon_free_format, field_value, fiscalon_free_format_get_field_value,
                AddFreeFormat);
}

static void TestFieldsOfRecords(void) {
  fiscalon_records* records = NULL;
  fiscalon_record* record = NULL;
  fiscalon_gov_formats* gov = NULL;
  fiscalon_gov_format* gov_format = NULL;
  fiscalon_free_formats* slots = NULL;
  fiscalon_free_format* slot = NULL;
  const char* text = NULL;
  OK(fiscalon_records_create(&records));
  OK(fiscalon_records_add(records, "", "", "", "", &record));
  TEXT_OF(fiscalon_record, record, the_date, "20260615", "20260615");
  TEXT_OF(fiscalon_record, record, amount, " 000012345", " 000012345");
  TEXT_OF(fiscalon_record, record, description, kAccents, kAccents);
  OK(fiscalon_record_destroy(&record));
  /* Each text goes where it belongs. */
  OK(fiscalon_records_add(records, "date", "amount", "description", "key", &record));
  OK(fiscalon_record_get_the_date(record, &text));
  CLAIM(Is(text, "date"));
  OK(fiscalon_record_get_amount(record, &text));
  CLAIM(Is(text, "amount"));
  OK(fiscalon_record_get_description(record, &text));
  CLAIM(Is(text, "description"));
  OK(fiscalon_record_destroy(&record));
  OK(fiscalon_records_destroy(&records));

  FAILS(1001, fiscalon_gov_format_create(NULL));
  OK(fiscalon_gov_format_create(&gov_format));
  TEXT_OF(fiscalon_gov_format, gov_format, period_start_date, "20260101", "20260101");
  TEXT_OF(fiscalon_gov_format, gov_format, period_end_date, "20260331", "20260331");
  TEXT_OF(fiscalon_gov_format, gov_format, period_due_date, "202612  ", "202612  ");
  TEXT_OF(fiscalon_gov_format, gov_format, filler1, "f1", "f1");
  TEXT_OF(fiscalon_gov_format, gov_format, contact_name, kAccents, kAccents);
  TEXT_OF(fiscalon_gov_format, gov_format, contact_title, "Clerk", "Clerk");
  TEXT_OF(fiscalon_gov_format, gov_format, filler2, "f2", "f2");
  OK(fiscalon_gov_format_destroy(&gov_format));
  OK(fiscalon_gov_formats_create(&gov));
  OK(fiscalon_gov_formats_add(gov, "1", "2", "3", "4", "5", "6", "7", "8", &gov_format));
  OK(fiscalon_gov_format_get_period_start_date(gov_format, &text));
  CLAIM(Is(text, "1"));
  OK(fiscalon_gov_format_get_period_end_date(gov_format, &text));
  CLAIM(Is(text, "2"));
  OK(fiscalon_gov_format_get_period_due_date(gov_format, &text));
  CLAIM(Is(text, "3"));
  OK(fiscalon_gov_format_get_filler1(gov_format, &text));
  CLAIM(Is(text, "4"));
  OK(fiscalon_gov_format_get_contact_name(gov_format, &text));
  CLAIM(Is(text, "5"));
  OK(fiscalon_gov_format_get_contact_title(gov_format, &text));
  CLAIM(Is(text, "6"));
  OK(fiscalon_gov_format_get_filler2(gov_format, &text));
  CLAIM(Is(text, "7"));
  OK(fiscalon_gov_format_destroy(&gov_format));
  OK(fiscalon_gov_formats_item_of(gov, "8", &gov_format));
  OK(fiscalon_gov_format_destroy(&gov_format));
  OK(fiscalon_gov_formats_destroy(&gov));

  FAILS(1001, fiscalon_free_format_create(NULL));
  OK(fiscalon_free_format_create(&slot));
  TEXT_OF(fiscalon_free_format, slot, field_num, "01", "01");
  TEXT_OF(fiscalon_free_format, slot, field_value, "000000000000012345", "000000000000012345");
  OK(fiscalon_free_format_destroy(&slot));
  OK(fiscalon_free_formats_create(&slots));
  OK(fiscalon_free_formats_add(slots, "02", "value", NULL, &slot));
  OK(fiscalon_free_format_get_field_num(slot, &text));
  CLAIM(Is(text, "02"));
  OK(fiscalon_free_format_get_field_value(slot, &text));
  CLAIM(Is(text, "value"));
  OK(fiscalon_free_format_destroy(&slot));
  OK(fiscalon_free_formats_destroy(&slots));
}

/* The user of screen "15", and what he has been told. */
typedef struct {
  const char* year_end;
  char said[200];
  int boxes, beeps, helps, handlers, forms;
} Played;

static int OnForm(void* context, fiscalon_form* form) {
  Played* played = (Played*)context;
  fiscalon_control control;
  const char* text = NULL;
  int32_t number = 0;
  int32_t i;
  ++played->forms;
  control.size = sizeof control;
  OK(fiscalon_form_get_name(form, &text));
  CLAIM(Is(text, "frmDueDateAmount"));
  OK(fiscalon_form_is_up(form, &number));
  CLAIM(number == 1);
  OK(fiscalon_form_get_title(form, &text));
  CLAIM(text[0] != '\0');
  OK(fiscalon_form_get_status(form, &text));
  CLAIM(Is(text, ""));
  OK(fiscalon_form_control_count(form, &number));
  CLAIM(number > 5);
  for (i = 1; i <= number; ++i) {
    OK(fiscalon_form_control_at(form, i, &control));
    CLAIM(control.name[0] != '\0' && control.kind >= FISCALON_CONTROL_LABEL && control.kind <= FISCALON_CONTROL_FRAME);
  }
  FAILS(9, fiscalon_form_control_at(form, 0, &control));
  FAILS(9, fiscalon_form_control_at(form, (int64_t)number + 1, &control));
  FAILS(5, fiscalon_form_control_of(form, "cmdNo", &control));
  FAILS(1001, fiscalon_form_control_of(form, "cmdOK", NULL));
  control.size = 1;
  FAILS(1004, fiscalon_form_control_of(form, "cmdOK", &control));
  control.size = sizeof control;
  OK(fiscalon_form_control_of(form, "cmdOK", &control));
  CLAIM(control.kind == FISCALON_CONTROL_BUTTON && control.enabled == 1 && control.visible == 1);
  FAILS(5, fiscalon_form_get_row(form, "cmdOK", 0, &text));
  FAILS(5, fiscalon_form_choose(form, "cmdOK", 0));
  FAILS(5, fiscalon_form_click(form, "cmdNo"));
  FAILS(5, fiscalon_form_press_mouse(form, "cmdNo"));
  FAILS(5, fiscalon_form_press_key(form, "Hyper"));
  FAILS(5, fiscalon_form_close(form, 6));
  FAILS(1001, fiscalon_form_type(form, NULL));
  FAILS(1003, fiscalon_form_paste(form, kNoUtf8));

  OK(fiscalon_form_get_focus(form, &text));
  CLAIM(Is(text, "txtRemittancePeriod"));
  OK(fiscalon_form_type(form, played->year_end));
  if (Is(played->year_end, "202612")) {
    /* The sixth digit of a good one moves on. */
    OK(fiscalon_form_get_focus(form, &text));
    CLAIM(Is(text, "txtAmountPayable"));
    OK(fiscalon_form_paste(form, "12346"));
    OK(fiscalon_form_press_key(form, "Backspace"));
    OK(fiscalon_form_type(form, "5"));
    OK(fiscalon_form_press_key(form, "Shift+Tab"));
    OK(fiscalon_form_press_mouse(form, "txtAmountPayable"));
    OK(fiscalon_form_control_of(form, "txtAmountPayable", &control));
    CLAIM(control.kind == FISCALON_CONTROL_TEXT_FIELD && Is(control.text, "12345"));
  }
  OK(fiscalon_form_click(form, "cmdOK"));
  FAILS(91, fiscalon_form_get_chosen(NULL, &number));
  OK(fiscalon_form_is_up(form, &number));
  if (number == 1)
    OK(fiscalon_form_click(form, "cmdCancel"));
  OK(fiscalon_form_get_chosen(form, &number));
  CLAIM(number == (Is(played->year_end, "202612") ? 1 : 0));
  FAILS(1010, fiscalon_form_click(form, "cmdOK"));
  FAILS(1010, fiscalon_form_control_of(form, "cmdOK", &control));
  FAILS(1010, fiscalon_form_get_title(form, &text));
  FAILS(1010, fiscalon_form_type(form, "x"));
  return 0;
}

static int OnBox(void* context, const fiscalon_box* box, int32_t* answer) {
  Played* played = (Played*)context;
  ++played->boxes;
  CLAIM(box->size == sizeof *box && *answer == box->closed_answer);
  CLAIM(box->buttons == FISCALON_BUTTONS_OK && box->default_answer == FISCALON_ANSWER_OK && box->title != NULL);
  strncpy(played->said, box->text, sizeof played->said - 1);
  return 0;
}

static int OnBeep(void* context) {
  ++((Played*)context)->beeps;
  return 0;
}

static int OnHelp(void* context, const char* file, int32_t help_context) {
  CLAIM(file[0] != '\0' && help_context != 0);
  ++((Played*)context)->helps;
  return 0;
}

static int OnHandler(void* context, const char* handler) {
  CLAIM(strchr(handler, '_') != NULL);
  ++((Played*)context)->handlers;
  return 0;
}

static void TestAScreen(void) {
  Played played;
  fiscalon_scripted_user user;
  fiscalon_payment* payment = NULL;
  fiscalon_records* records = NULL;
  fiscalon_records* again = NULL;
  fiscalon_record* record = NULL;
  const char* text = NULL;
  int32_t chosen = 7;
  int32_t number = 0;
  memset(&played, 0, sizeof played);
  memset(&user, 0, sizeof user);
  played.year_end = "202612";
  OK(fiscalon_reset());
  OK(fiscalon_use_locale("en-CA"));
  OK(fiscalon_use_fixed_clock(2026, 6, 15, 13, 5, 9));
  OK(fiscalon_payment_create(&payment));
  OK(fiscalon_payment_get_pc4_records(payment, &records));
  CLAIM(records == NULL);
  FAILS(91, fiscalon_payment_get_pc4_records(NULL, &records));
  FAILS(91, fiscalon_payment_set_pc4_records(NULL, NULL));

  FAILS(91, fiscalon_payment_show(payment, "15", &chosen));
  CLAIM(chosen == 0);
  FAILS(1001, fiscalon_use_scripted_user(NULL));
  FAILS(1004, fiscalon_use_scripted_user(&user));
  user.size = sizeof user;
  user.context = &played;
  user.on_form = OnForm;
  user.on_box = OnBox;
  user.on_beep = OnBeep;
  user.on_help = OnHelp;
  user.on_handler = OnHandler;
  OK(fiscalon_use_scripted_user(&user));
  FAILS(FISCALON_ERROR_INVALID_SCREEN_TYPE, fiscalon_payment_show(payment, "12", &chosen));
  {
    fiscalon_error error;
    error.size = sizeof error;
    OK(fiscalon_last_error(&error));
    CLAIM(Is(error.source, "Fiscalon.ShowLevyraScreen") && Is(error.description, "Invalid Screen Type"));
  }
  FAILS(1001, fiscalon_payment_show(payment, NULL, &chosen));
  FAILS(1001, fiscalon_payment_show(payment, "15", NULL));
  FAILS(91, fiscalon_payment_show(NULL, "15", &chosen));
  CLAIM(played.forms == 0);

  OK(fiscalon_payment_set_comp_name(payment, "Summit Levies"));
  OK(fiscalon_payment_set_paid_amount(payment, "12345"));
  OK(fiscalon_payment_set_paid_date(payment, "06152026"));
  OK(fiscalon_payment_set_enter_name(payment, kAccents));
  OK(fiscalon_payment_set_enter_title(payment, "Clerk"));
  OK(fiscalon_payment_set_seq_number(payment, "0001"));
  OK(fiscalon_payment_show(payment, "15", &chosen));
  CLAIM(chosen == 1 && played.forms == 1 && played.boxes == 0 && played.handlers > 10);
  OK(fiscalon_payment_get_pc4_records(payment, &records));
  OK(fiscalon_payment_get_pc4_records(payment, &again));
  OK(fiscalon_records_is_same(records, again, &number));
  CLAIM(number == 1);
  OK(fiscalon_records_destroy(&again));
  OK(fiscalon_records_count(records, &number));
  CLAIM(number == 2);
  OK(fiscalon_records_item_at(records, 1, &record));
  OK(fiscalon_record_get_description(record, &text));
  CLAIM(strncmp(text, "PC40001T                202612          H\xC3\xA9l\xC3\xA8ne \xE2\x82\xAC ", 53) == 0);
  OK(fiscalon_record_destroy(&record));
  OK(fiscalon_records_item_at(records, 2, &record));
  OK(fiscalon_record_get_description(record, &text));
  CLAIM(strncmp(text, "PC40001F01000000000000012345", 28) == 0 && strlen(text) == 160);
  OK(fiscalon_record_destroy(&record));

  /* A wrong year, which a box tells, and no more records. */
  played.year_end = "202812";
  OK(fiscalon_payment_set_pc4_records(payment, NULL));
  OK(fiscalon_payment_show(payment, "15", &chosen));
  CLAIM(chosen == 0 && played.boxes > 0);
  CLAIM(strstr(played.said, "199001 to 202705") != NULL);
  OK(fiscalon_payment_get_pc4_records(payment, &again));
  CLAIM(again == NULL);
  OK(fiscalon_payment_set_pc4_records(payment, records));
  OK(fiscalon_payment_get_pc4_records(payment, &again));
  CLAIM(again != NULL);
  OK(fiscalon_records_destroy(&again));
  OK(fiscalon_records_destroy(&records));

  /* The same in French: what the user reads changes, and nothing else. */
  played.year_end = "202812";
  played.said[0] = '\0';
  OK(fiscalon_use_language("fr"));
  OK(fiscalon_payment_show(payment, "15", &chosen));
  CLAIM(chosen == 0 && played.said[0] != '\0' && strstr(played.said, "Your entry") == NULL);
  CLAIM(strstr(played.said, "199001") != NULL && strstr(played.said, "202705") != NULL);
  OK(fiscalon_use_language("en"));

  OK(fiscalon_use_front_end(NULL));
  FAILS(91, fiscalon_payment_show(payment, "15", &chosen));
  OK(fiscalon_payment_destroy(&payment));
}

static void TestACheck(void) {
  static const char kT[] = "PC40001T                                Jane Doe";
  static const char kF[] = "PC40001F010000000000000123450220260531          0300000000000050000004000000000000000012";
  fiscalon_check* check = NULL;
  fiscalon_records* records = NULL;
  fiscalon_records* same = NULL;
  fiscalon_gov_formats* gov = NULL;
  fiscalon_free_formats* slots = NULL;
  const char* text = NULL;
  int32_t valid = 7;
  FAILS(1001, fiscalon_check_create(NULL));
  OK(fiscalon_check_create(&check));
  TEXT_OF(fiscalon_check, check, screen_code, "04", "04");
  TEXT_OF(fiscalon_check, check, number_of_fields, "4", "4");
  TEXT_OF(fiscalon_check, check, biller_code, "001052", "001052");
  TEXT_OF(fiscalon_check, check, biller_name, kAccents, kAccents);
  TEXT_OF(fiscalon_check, check, payment_date, "06152026", "06152026");
  TEXT_OF(fiscalon_check, check, payment_amount, "12345", "123.45");
  TEXT_OF(fiscalon_check, check, invalid_reason, "none", "none");
  FAILS(6, fiscalon_check_set_payment_amount(check, "1e999"));

  /* No records: error 91, as a reason. */
  OK(fiscalon_check_is_info_valid(check, &valid));
  CLAIM(valid == 0);
  OK(fiscalon_check_get_invalid_reason(check, &text));
  CLAIM(Is(text, "Error 91 - Object variable or With block variable not set"));

  OK(fiscalon_records_create(&records));
  OK(fiscalon_records_add(records, NULL, NULL, kT, NULL, NULL));
  OK(fiscalon_records_add(records, NULL, NULL, kF, NULL, NULL));
  OK(fiscalon_check_set_pc4_records(check, records));
  OK(fiscalon_check_get_pc4_records(check, &same));
  OK(fiscalon_records_is_same(records, same, &valid));
  CLAIM(valid == 1);
  OK(fiscalon_records_destroy(&same));
  OK(fiscalon_check_is_info_valid(check, &valid));
  CLAIM(valid == 0);
  OK(fiscalon_check_get_invalid_reason(check, &text));
  CLAIM(Is(text, "Invalid or not supported Screen Type"));
  OK(fiscalon_check_set_screen_code(check, "03"));
  OK(fiscalon_check_is_info_valid(check, &valid));
  CLAIM(valid == 1);
  OK(fiscalon_check_get_invalid_reason(check, &text));
  CLAIM(Is(text, ""));
  FAILS(91, fiscalon_check_is_info_valid(NULL, &valid));
  FAILS(1001, fiscalon_check_is_info_valid(check, NULL));

  OK(fiscalon_gov_formats_create(&gov));
  OK(fiscalon_check_set_pc4_gov_format_records(check, gov));
  OK(fiscalon_gov_formats_destroy(&gov));
  OK(fiscalon_check_get_pc4_gov_format_records(check, &gov));
  CLAIM(gov != NULL);
  OK(fiscalon_gov_formats_destroy(&gov));
  OK(fiscalon_free_formats_create(&slots));
  OK(fiscalon_check_set_pc4_free_format_records(check, slots));
  OK(fiscalon_free_formats_destroy(&slots));
  OK(fiscalon_check_get_pc4_free_format_records(check, &slots));
  CLAIM(slots != NULL);
  OK(fiscalon_free_formats_destroy(&slots));
  /* A check takes its working collections away. */
  OK(fiscalon_check_is_info_valid(check, &valid));
  OK(fiscalon_check_get_pc4_gov_format_records(check, &gov));
  OK(fiscalon_check_get_pc4_free_format_records(check, &slots));
  CLAIM(gov == NULL && slots == NULL);
  FAILS(91, fiscalon_check_get_pc4_gov_format_records(NULL, &gov));
  FAILS(91, fiscalon_check_set_pc4_gov_format_records(NULL, NULL));
  FAILS(91, fiscalon_check_get_pc4_free_format_records(NULL, &slots));
  FAILS(91, fiscalon_check_set_pc4_free_format_records(NULL, NULL));
  FAILS(91, fiscalon_check_get_pc4_records(NULL, &same));
  FAILS(91, fiscalon_check_set_pc4_records(NULL, NULL));
  OK(fiscalon_records_destroy(&records));
  OK(fiscalon_check_destroy(&check));
}

static void TestAJudge(void) {
  static const char* const kRecords[] = {
      "PC40001T                                Jane Doe",
      "PC40001F010000000000000123450220260531          0300000000000050000004000000000000000012"};
  fiscalon_judge* judge = NULL;
  fiscalon_verdict verdict;
  verdict.size = sizeof verdict;
  FAILS(1001, fiscalon_judge_create(NULL));
  OK(fiscalon_judge_create(&judge));
  OK(fiscalon_judge_payment(judge, "03", "", 12345, kRecords, 2, 1, &verdict));
  CLAIM(verdict.valid == 1 && verdict.reason.size == 0 && verdict.fault_count == 0);
  OK(fiscalon_judge_payment(judge, "03", "", 99999, kRecords, 2, 1, &verdict));
  CLAIM(verdict.valid == 0 && verdict.fault_count == 1 && Is(verdict.screen.data, "03"));
  CLAIM(Is(verdict.reason.data, "Field 01 Amount of Payment is not equal to amount to be paid"));
  CLAIM(verdict.faults->size == sizeof(fiscalon_fault) && Is(verdict.faults->field.data, "01") &&
        verdict.faults->line == 2);
  FAILS(91, fiscalon_judge_payment(NULL, "03", "", 1, kRecords, 2, 0, &verdict));
  FAILS(1001, fiscalon_judge_payment(judge, NULL, "", 1, kRecords, 2, 0, &verdict));
  FAILS(1001, fiscalon_judge_payment(judge, "03", "", 1, NULL, 2, 0, &verdict));
  FAILS(1001, fiscalon_judge_payment(judge, "03", "", 1, kRecords, 2, 0, NULL));
  verdict.size = 0;
  FAILS(1004, fiscalon_judge_payment(judge, "03", "", 1, kRecords, 2, 0, &verdict));
  OK(fiscalon_judge_destroy(&judge));
}

typedef struct {
  size_t verdicts, faults, problems;
  char reasons[400];
  char problem[200];
} Heard;

static int OnVerdicts(void* context, const fiscalon_verdict* verdicts, size_t count) {
  Heard* heard = (Heard*)context;
  size_t i;
  for (i = 0; i < count; ++i) {
    CLAIM(verdicts[i].size == sizeof(fiscalon_verdict) && verdicts[i].row != 0 && verdicts[i].seq.size == 4);
    CLAIM(verdicts[i].lines.size % 164 == 0);
    ++heard->verdicts;
    heard->faults += verdicts[i].fault_count;
    strncat(heard->reasons, verdicts[i].reason.data, 150);
    strcat(heard->reasons, "|");
  }
  return 0;
}

static int OnProgress(void* context, const fiscalon_batch_counts* so_far) {
  (void)context;
  return so_far->size == sizeof *so_far ? 0 : 1;
}

static int OnProblem(void* context, const char* file, uint64_t line, const char* reason) {
  Heard* heard = (Heard*)context;
  ++heard->problems;
  sprintf(heard->problem, "%s:%u: %.100s", file, (unsigned)line, reason);
  return 0;
}

static int Refuse(void* context, const fiscalon_verdict* verdicts, size_t count) {
  (void)context;
  (void)verdicts;
  (void)count;
  return 3;
}

static void AddLine(char* to, const char* record) {
  size_t length = strlen(record);
  strcat(to, "\"");
  strcat(to, record);
  for (; length < 160; ++length) strcat(to, " ");
  strcat(to, "\"\r\n");
}

static void TestABatch(void) {
  static const char kPayments[] = "seq,screen,biller,amount\n0001,03,,12345\n0002,03,,12345\n0003,03,,99999\n";
  static const char kSlots[] = "F010000000000000123450220260531          0300000000000050000004000000000000000012";
  char records[2000] = "";
  char line[200];
  int i;
  Heard heard;
  fiscalon_batch batch;
  fiscalon_batch_counts counts;
  for (i = 1; i <= 3; ++i) {
    sprintf(line, "PC4000%dT                                Jane Doe", i);
    AddLine(records, line);
    sprintf(line, "PC4000%d%s", i, kSlots);
    AddLine(records, line);
  }
  memset(&heard, 0, sizeof heard);
  memset(&batch, 0, sizeof batch);
  counts.size = sizeof counts;
  FAILS(1001, fiscalon_validate_batch(NULL, &counts));
  FAILS(1004, fiscalon_validate_batch(&batch, &counts));
  batch.size = sizeof batch;
  FAILS(1001, fiscalon_validate_batch(&batch, &counts));
  batch.payments_bytes = kPayments;
  batch.payments_size = strlen(kPayments);
  batch.records_bytes = records;
  batch.records_size = strlen(records);
  OK(fiscalon_validate_batch(&batch, &counts));
  CLAIM(counts.payments == 3 && counts.invalid == 1 && counts.total_bytes == strlen(records));
  OK(fiscalon_validate_batch(&batch, NULL));

  batch.context = &heard;
  batch.on_verdicts = OnVerdicts;
  batch.on_progress = OnProgress;
  batch.on_problem = OnProblem;
  batch.wants_valid = batch.wants_faults = batch.wants_lines = 1;
  batch.jobs = 2;
  OK(fiscalon_validate_batch(&batch, &counts));
  CLAIM(heard.verdicts == 3 && heard.faults == 1);
  CLAIM(Is(heard.reasons, "||Field 01 Amount of Payment is not equal to amount to be paid|"));
  /* In parts. */
  memset(&heard, 0, sizeof heard);
  batch.parts = 2;
  for (batch.part = 1; batch.part <= 2; ++batch.part) OK(fiscalon_validate_batch(&batch, &counts));
  CLAIM(heard.verdicts == 3);
  CLAIM(Is(heard.reasons, "||Field 01 Amount of Payment is not equal to amount to be paid|"));
  batch.part = 3;
  FAILS(5, fiscalon_validate_batch(&batch, &counts));
  batch.parts = 0;
  FAILS(5, fiscalon_validate_batch(&batch, &counts));
  batch.part = 0;

  batch.on_verdicts = Refuse;
  FAILS(1009, fiscalon_validate_batch(&batch, &counts));
  batch.on_verdicts = NULL;
  batch.records_path = "these.pc4";
  --batch.records_size;
  batch.records_size -= 10;
  FAILS(1011, fiscalon_validate_batch(&batch, &counts));
  CLAIM(heard.problems > 0 && strncmp(heard.problem, "these.pc4:6: ", 13) == 0);
  batch.records_bytes = NULL;
  batch.records_path = "no such file";
  FAILS(1011, fiscalon_validate_batch(&batch, &counts));
  CLAIM(strncmp(heard.problem, "no such file:0: ", 16) == 0);
}

static void TestTheProcess(void) {
  fiscalon_error error;
  const char* reason = NULL;
  CLAIM(fiscalon_c_interface() == FISCALON_C_INTERFACE);
  CLAIM(strchr(fiscalon_version(), '.') != NULL);
  CLAIM(fiscalon_last_error(NULL) == -1);
  error.size = 1;
  CLAIM(fiscalon_last_error(&error) == -1);

  FAILS(5, fiscalon_use_locale("xx-XX"));
  FAILS(1001, fiscalon_use_locale(NULL));
  OK(fiscalon_use_locale("fr-CA"));
  OK(fiscalon_use_locale("system"));
  FAILS(5, fiscalon_use_language("de"));
  FAILS(1001, fiscalon_use_language(NULL));
  OK(fiscalon_use_language("en"));
  FAILS(5, fiscalon_use_fixed_clock(2026, 2, 29, 0, 0, 0));
  FAILS(5, fiscalon_use_fixed_clock(2026, 13, 1, 0, 0, 0));
  FAILS(5, fiscalon_use_fixed_clock(2026, 1, 1, 24, 0, 0));
  OK(fiscalon_use_fixed_clock(2024, 2, 29, 23, 59, 59));
  OK(fiscalon_set_play_by_play_enabled(0));
  FAILS(6, fiscalon_set_play_by_play_enabled(65536));
  OK(fiscalon_set_main_path(""));
  FAILS(1001, fiscalon_set_main_path(NULL));
  OK(fiscalon_set_session_number(123456.0));
  FAILS(6, fiscalon_set_session_number(1e10));

  FAILS(1008, fiscalon_use_front_end("none"));
  FAILS(1003, fiscalon_use_front_end(kNoUtf8));
  FAILS(1008, fiscalon_front_end_hindrance("none", &reason));
  FAILS(1001, fiscalon_front_end_hindrance(NULL, &reason));
  OK(fiscalon_front_end_hindrance("scripted", &reason));
  CLAIM(Is(reason, ""));
  OK(fiscalon_use_front_end_folder("/no/such/folder"));
  OK(fiscalon_use_front_end_folder(NULL));
  OK(fiscalon_use_front_end("scripted"));
  OK(fiscalon_reset());
}

static void TestTheCodePage(void) {
  char place[32];
  size_t needed = 7;
  OK(fiscalon_to_utf8("caf\xE9 \x80", 6, place, sizeof place, &needed));
  CLAIM(needed == 9 && Is(place, "caf\xC3\xA9 \xE2\x82\xAC"));
  OK(fiscalon_from_utf8(place, needed, place, sizeof place, &needed));
  CLAIM(needed == 6 && Is(place, "caf\xE9 \x80"));
  place[0] = 'x';
  OK(fiscalon_to_utf8("caf\xE9", 4, place, 5, &needed));
  CLAIM(needed == 5 && place[0] == 'x');
  OK(fiscalon_to_utf8(NULL, 0, NULL, 0, &needed));
  CLAIM(needed == 0);
  OK(fiscalon_to_utf8("a\0b", 3, place, sizeof place, &needed));
  CLAIM(needed == 3 && memcmp(place, "a\0b", 4) == 0);
  FAILS(1001, fiscalon_to_utf8(NULL, 1, place, sizeof place, &needed));
  FAILS(1001, fiscalon_to_utf8("a", 1, place, sizeof place, NULL));
  FAILS(1003, fiscalon_from_utf8(kNoUtf8, 4, place, sizeof place, &needed));
  CLAIM(needed == 0);
  FAILS(1003, fiscalon_from_utf8(kNotInTheCodePage, 2, place, sizeof place, &needed));
  FAILS(1003, fiscalon_from_utf8("\xED\xA0\x80", 3, place, sizeof place, &needed)); /* half of a pair */
  FAILS(1003, fiscalon_from_utf8("\xC0\xAF", 2, place, sizeof place, &needed));     /* longer than it need be */
}

int main(void) {
  OK(fiscalon_reset());
  TestTheProcess();
  TestTheCodePage();
  OK(fiscalon_use_locale("en-CA"));
  OK(fiscalon_use_fixed_clock(2026, 6, 15, 13, 5, 9));
  TestTextsOfAPayment();
  TestNumbersOfAPayment();
  TestDestroyedHandles();
  TestCollections();
  TestFieldsOfRecords();
  TestACheck();
  TestAJudge();
  TestABatch();
  TestAScreen();
  OK(fiscalon_reset());
  if (mistakes == 0)
    printf("all as it should be\n");
  return mistakes == 0 ? 0 : 1;
}
