/* Fiscalon for hosts in C, and in any language that calls C: the payment session, the records that it hands back, the
 * check of payments that arrive in bulk, whole batches, and the front ends. C99; C++ may include it too.
 *
 *     fiscalon_payment* payment = NULL;
 *     int32_t chosen = 0;
 *     if (fiscalon_use_front_end("qt") == 0 && fiscalon_payment_create(&payment) == 0 &&
 *         fiscalon_payment_set_paid_amount(payment, "12345") == 0)
 *       fiscalon_payment_show(payment, "15", &chosen);
 *     fiscalon_payment_destroy(&payment);
 *
 * Answers. A function answers 0, or -1 where it failed; `fiscalon_last_error` tells why. What failed has changed
 * nothing, unless its comment says otherwise. Results come through pointers, and are 0 or NULL where a call fails.
 * Nothing is thrown through this interface, and nothing crashes for want of memory.
 *
 * Handles. What `..._create` and other calls give in the place of a `fiscalon_...**` is the host's own, and goes by
 * `..._destroy`, which takes the variable's address and sets it to NULL; a variable that is NULL already stays so.
 * NULL for a handle is error 91, and a copy of a handle that was destroyed is FISCALON_ERROR_NO_HANDLE: such uses are
 * noticed, never followed. Several handles may stand for one collection or record, which lives as long as anything
 * holds it.
 *
 * Texts are UTF-8 and end with a zero. The library itself works in Windows-1252, where a record's columns can be
 * counted, so a text that is no UTF-8, or holds a character without a place there, is FISCALON_ERROR_TEXT: it never
 * becomes "?". A text that a getter gives lives until the next call with the same handle. NULL for a text is
 * FISCALON_ERROR_NULL_POINTER, but where a comment says what it means.
 *
 * Truth. The host's Booleans are numbers: True is -1, and only that. `write_file` 1 counts as False. What the library
 * says by itself (`chosen`, `valid`) is 1 or 0.
 *
 * Threads. One call is in the library at a time; another thread's waits for it. While a screen is open on one thread
 * any call of another is FISCALON_ERROR_THREAD, for nobody knows how long its user will take; but handles may be
 * destroyed on any thread at any time, and the last error and the code page be asked. The thread that installs a front
 * end is the one that shows screens: a show, a front end and a reset from another one are that error too. Batches may
 * run on any number of threads, and beside other calls; what they judge by can't be changed meanwhile, by a locale, a
 * clock, a new payment (which asks for the locale) or a screen: FISCALON_ERROR_BUSY.
 *
 * A process that was forked goes on, but for what can't: screens on a front end of its parent's, unless that is the
 * scripted one, and all calls where another thread of the parent was in one: FISCALON_ERROR_FORKED. */
#ifndef FISCALON_C_H
#define FISCALON_C_H

#include <stddef.h>
#include <stdint.h>

#ifndef FISCALON_API
#define FISCALON_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* The interface that this header describes. It grows; what is there stays as it is. */
#define FISCALON_C_INTERFACE 1

/* The host's Boolean True. */
#define FISCALON_TRUE (-1)

/* ---- Versions ---------------------------------------------------------------------------------------------------- */

/* The library's version, such as "1.0.0". Never NULL. */
FISCALON_API const char* fiscalon_version(void);
/* The interface that the library has: at least FISCALON_C_INTERFACE of the header that a host was compiled with. */
FISCALON_API int32_t fiscalon_c_interface(void);

/* ---- Errors ------------------------------------------------------------------------------------------------------ */

/* The numbers that a host may meet. Those below 1000 are the platform's, of the library's own rules. */
enum {
  FISCALON_ERROR_INVALID_PROCEDURE_CALL = 5,        /* an unknown key, a text that does not fit its columns */
  FISCALON_ERROR_OVERFLOW = 6,                      /* a number beyond its range */
  FISCALON_ERROR_OUT_OF_MEMORY = 7,                 /* nothing is leaked; the same call may be made again */
  FISCALON_ERROR_SUBSCRIPT_OUT_OF_RANGE = 9,        /* an unknown position */
  FISCALON_ERROR_TYPE_MISMATCH = 13,                /* a text that is no number */
  FISCALON_ERROR_FILE_NOT_FOUND = 53,               /* an older record file is not there any more */
  FISCALON_ERROR_DISK_FULL = 61,                    /* no room for a record file */
  FISCALON_ERROR_PERMISSION_DENIED = 70,            /* an older record file can't be deleted */
  FISCALON_ERROR_PATH_FILE_ACCESS = 75,             /* a file can't be opened */
  FISCALON_ERROR_PATH_NOT_FOUND = 76,               /* a folder is missing */
  FISCALON_ERROR_OBJECT_NOT_SET = 91,               /* NULL for a handle; no front end is installed */
  FISCALON_ERROR_ALREADY_SHOWN = 400,               /* the form is being shown already */
  FISCALON_ERROR_DUPLICATE_KEY = 457,               /* a key that is taken */
  FISCALON_ERROR_INVALID_SCREEN_TYPE = -2147221503, /* 0x80040001: a code that no screen has */
  /* Of this interface. */
  FISCALON_ERROR_NULL_POINTER = 1001, /* NULL for a text, or for the place of a result */
  FISCALON_ERROR_NO_HANDLE = 1002,    /* a handle that was destroyed, or one of another kind */
  FISCALON_ERROR_TEXT = 1003,         /* no UTF-8, or a character that Windows-1252 lacks */
  FISCALON_ERROR_STRUCT_SIZE = 1004,  /* a struct whose `size` is that of no version of this header */
  FISCALON_ERROR_THREAD = 1005,       /* not from this thread, see above */
  FISCALON_ERROR_BUSY = 1006,         /* not while a screen is open or a batch is being judged */
  FISCALON_ERROR_FORKED = 1007,       /* not in a child of the process that installed the front end */
  FISCALON_ERROR_FRONT_END = 1008,    /* no such front end, or not installed, or nothing to show forms on */
  FISCALON_ERROR_CALLBACK = 1009,     /* a callback of the host answered that it failed, or gave no sense */
  FISCALON_ERROR_FORM_CLOSED = 1010,  /* an act on a form that is no longer up, or a look at it */
  FISCALON_ERROR_BATCH = 1011,        /* files of a batch can't be read or don't line up; no verdict counts */
  FISCALON_ERROR_UNFORESEEN = 1012    /* a defect */
};

/* Texts of an error live until the next failure on the same thread, or the thread's end. */
typedef struct fiscalon_error {
  size_t size;             /* sizeof(fiscalon_error), by the host */
  int32_t number;          /* one of FISCALON_ERROR_...; 0 for none */
  const char* source;      /* such as "Fiscalon.ShowLevyraScreen" */
  const char* description; /* what happened, such as "Overflow" */
} fiscalon_error;

/* The last failure on this thread; number 0 and empty texts where there was none. A call that goes well leaves it as it
 * is. Fails only where `error` is NULL or its size is not that of a fiscalon_error, and says no more then. */
FISCALON_API int fiscalon_last_error(fiscalon_error* error);

/* ---- Records ----------------------------------------------------------------------------------------------------- */

/* One record (`PC4`). For all kinds but invoice rows the whole record stands in the description, without quotes, and
 * the other two texts are empty. Only fiscalon_records_add makes one. */
typedef struct fiscalon_record fiscalon_record;
/* The records of one payment, in order (`PC4s`). */
typedef struct fiscalon_records fiscalon_records;
/* The fields of a T record (`clsPC4GovFormat`), and a collection of them (`clsPC4GovFormats`). */
typedef struct fiscalon_gov_format fiscalon_gov_format;
typedef struct fiscalon_gov_formats fiscalon_gov_formats;
/* One slot of an F record (`clsPC4FreeFormat`), and a collection of them (`clsPC4FreeFormats`). */
typedef struct fiscalon_free_format fiscalon_free_format;
typedef struct fiscalon_free_formats fiscalon_free_formats;

/* The date of an invoice, 8 characters; else empty. */
FISCALON_API int fiscalon_record_get_the_date(fiscalon_record* record, const char** text);
FISCALON_API int fiscalon_record_set_the_date(fiscalon_record* record, const char* text);
/* The amount of an invoice in cents, 10 characters; else empty. */
FISCALON_API int fiscalon_record_get_amount(fiscalon_record* record, const char** text);
FISCALON_API int fiscalon_record_set_amount(fiscalon_record* record, const char* text);
/* The whole record, 160 characters mostly, or the number of an invoice, 27 characters. */
FISCALON_API int fiscalon_record_get_description(fiscalon_record* record, const char** text);
FISCALON_API int fiscalon_record_set_description(fiscalon_record* record, const char* text);
FISCALON_API int fiscalon_record_destroy(fiscalon_record** record);

/* The operations of a collection, the same for all three kinds. Positions count from 1; a member may have a key, unique
 * in the collection and compared exactly. */
FISCALON_API int fiscalon_records_create(fiscalon_records** records);
FISCALON_API int fiscalon_records_destroy(fiscalon_records** records);
/* Appends a member made of its texts, NULL for an empty one, with a key unless that is NULL or empty. Gives the member
 * where `added` is not NULL. Error 457 where the key is taken: nothing is added. */
FISCALON_API int fiscalon_records_add(fiscalon_records* records, const char* the_date, const char* amount,
                                      const char* description, const char* key, fiscalon_record** added);
/* How many members there are. */
FISCALON_API int fiscalon_records_count(fiscalon_records* records, int32_t* count);
/* A member, which stays what it is when the collection lets it go. Error 9 for a position, 5 for a key without one. */
FISCALON_API int fiscalon_records_item_at(fiscalon_records* records, int64_t position, fiscalon_record** item);
FISCALON_API int fiscalon_records_item_of(fiscalon_records* records, const char* key, fiscalon_record** item);
/* Takes a member out; those behind it move up. The same errors. */
FISCALON_API int fiscalon_records_remove_at(fiscalon_records* records, int64_t position);
FISCALON_API int fiscalon_records_remove_of(fiscalon_records* records, const char* key);
/* Takes all members out. */
FISCALON_API int fiscalon_records_clear(fiscalon_records* records);
/* Whether two handles stand for one collection: 1 or 0. */
FISCALON_API int fiscalon_records_is_same(fiscalon_records* records, fiscalon_records* other, int32_t* same);

/* The start of the period, 8 characters. */
FISCALON_API int fiscalon_gov_format_get_period_start_date(fiscalon_gov_format* format, const char** text);
FISCALON_API int fiscalon_gov_format_set_period_start_date(fiscalon_gov_format* format, const char* text);
/* The end of the period, 8 characters. */
FISCALON_API int fiscalon_gov_format_get_period_end_date(fiscalon_gov_format* format, const char** text);
FISCALON_API int fiscalon_gov_format_set_period_end_date(fiscalon_gov_format* format, const char* text);
/* The due date, 8 characters. */
FISCALON_API int fiscalon_gov_format_get_period_due_date(fiscalon_gov_format* format, const char** text);
FISCALON_API int fiscalon_gov_format_set_period_due_date(fiscalon_gov_format* format, const char* text);
/* 8 characters that no screen fills. */
FISCALON_API int fiscalon_gov_format_get_filler1(fiscalon_gov_format* format, const char** text);
FISCALON_API int fiscalon_gov_format_set_filler1(fiscalon_gov_format* format, const char* text);
/* The person entering, 30 characters. */
FISCALON_API int fiscalon_gov_format_get_contact_name(fiscalon_gov_format* format, const char** text);
FISCALON_API int fiscalon_gov_format_set_contact_name(fiscalon_gov_format* format, const char* text);
/* That person's title, 20 characters. */
FISCALON_API int fiscalon_gov_format_get_contact_title(fiscalon_gov_format* format, const char** text);
FISCALON_API int fiscalon_gov_format_set_contact_title(fiscalon_gov_format* format, const char* text);
/* 10 characters that no screen fills. */
FISCALON_API int fiscalon_gov_format_get_filler2(fiscalon_gov_format* format, const char** text);
FISCALON_API int fiscalon_gov_format_set_filler2(fiscalon_gov_format* format, const char* text);
/* A member of no collection. */
FISCALON_API int fiscalon_gov_format_create(fiscalon_gov_format** format);
FISCALON_API int fiscalon_gov_format_destroy(fiscalon_gov_format** format);

FISCALON_API int fiscalon_gov_formats_create(fiscalon_gov_formats** formats);
FISCALON_API int fiscalon_gov_formats_destroy(fiscalon_gov_formats** formats);
FISCALON_API int fiscalon_gov_formats_add(fiscalon_gov_formats* formats, const char* period_start_date,
                                          const char* period_end_date, const char* period_due_date, const char* filler1,
                                          const char* contact_name, const char* contact_title, const char* filler2,
                                          const char* key, fiscalon_gov_format** added);
FISCALON_API int fiscalon_gov_formats_count(fiscalon_gov_formats* formats, int32_t* count);
FISCALON_API int fiscalon_gov_formats_item_at(fiscalon_gov_formats* formats, int64_t position,
                                              fiscalon_gov_format** item);
FISCALON_API int fiscalon_gov_formats_item_of(fiscalon_gov_formats* formats, const char* key,
                                              fiscalon_gov_format** item);
FISCALON_API int fiscalon_gov_formats_remove_at(fiscalon_gov_formats* formats, int64_t position);
FISCALON_API int fiscalon_gov_formats_remove_of(fiscalon_gov_formats* formats, const char* key);
FISCALON_API int fiscalon_gov_formats_clear(fiscalon_gov_formats* formats);
FISCALON_API int fiscalon_gov_formats_is_same(fiscalon_gov_formats* formats, fiscalon_gov_formats* other,
                                              int32_t* same);

/* The number of the field, 2 characters. */
FISCALON_API int fiscalon_free_format_get_field_num(fiscalon_free_format* format, const char** text);
FISCALON_API int fiscalon_free_format_set_field_num(fiscalon_free_format* format, const char* text);
/* What stands in it, 18 characters. */
FISCALON_API int fiscalon_free_format_get_field_value(fiscalon_free_format* format, const char** text);
FISCALON_API int fiscalon_free_format_set_field_value(fiscalon_free_format* format, const char* text);
/* A member of no collection. */
FISCALON_API int fiscalon_free_format_create(fiscalon_free_format** format);
FISCALON_API int fiscalon_free_format_destroy(fiscalon_free_format** format);

FISCALON_API int fiscalon_free_formats_create(fiscalon_free_formats** formats);
FISCALON_API int fiscalon_free_formats_destroy(fiscalon_free_formats** formats);
FISCALON_API int fiscalon_free_formats_add(fiscalon_free_formats* formats, const char* field_num,
                                           const char* field_value, const char* key, fiscalon_free_format** added);
FISCALON_API int fiscalon_free_formats_count(fiscalon_free_formats* formats, int32_t* count);
FISCALON_API int fiscalon_free_formats_item_at(fiscalon_free_formats* formats, int64_t position,
                                               fiscalon_free_format** item);
FISCALON_API int fiscalon_free_formats_item_of(fiscalon_free_formats* formats, const char* key,
                                               fiscalon_free_format** item);
FISCALON_API int fiscalon_free_formats_remove_at(fiscalon_free_formats* formats, int64_t position);
FISCALON_API int fiscalon_free_formats_remove_of(fiscalon_free_formats* formats, const char* key);
FISCALON_API int fiscalon_free_formats_clear(fiscalon_free_formats* formats);
FISCALON_API int fiscalon_free_formats_is_same(fiscalon_free_formats* formats, fiscalon_free_formats* other,
                                               int32_t* same);

/* ---- The payment ------------------------------------------------------------------------------------------------- */

/* The context of one payment, and the call that asks the user for the rest (`Levyra`). A host may reuse one with
 * changed properties; what it does not set again keeps its value. All texts are empty at first. */
typedef struct fiscalon_payment fiscalon_payment;

/* Asks the user's locale for its decimal separator, which decides for the whole process whether a typed amount means
 * cents. */
FISCALON_API int fiscalon_payment_create(fiscalon_payment** payment);
/* A payment whose screen is open may be destroyed; it goes when the show ends. */
FISCALON_API int fiscalon_payment_destroy(fiscalon_payment** payment);

/* The host's customer number. The error log names it from then on. */
FISCALON_API int fiscalon_payment_get_zelmor_number(fiscalon_payment* payment, const char** text);
FISCALON_API int fiscalon_payment_set_zelmor_number(fiscalon_payment* payment, const char* text);
/* Biller code, such as "001052". */
FISCALON_API int fiscalon_payment_get_comp_code(fiscalon_payment* payment, const char** text);
FISCALON_API int fiscalon_payment_set_comp_code(fiscalon_payment* payment, const char* text);
/* Biller name, shown on the screens. */
FISCALON_API int fiscalon_payment_get_comp_name(fiscalon_payment* payment, const char** text);
FISCALON_API int fiscalon_payment_set_comp_name(fiscalon_payment* payment, const char* text);
/* Kept for the host; no screen receives it. */
FISCALON_API int fiscalon_payment_get_account_number(fiscalon_payment* payment, const char** text);
FISCALON_API int fiscalon_payment_set_account_number(fiscalon_payment* payment, const char* text);
/* The amount of the payment. Written in cents ("12345"), read back in dollars ("123.45", ".05", "12"). A text that
 * begins with no number is 0. Error 6 for a number beyond all floats. */
FISCALON_API int fiscalon_payment_get_paid_amount(fiscalon_payment* payment, const char** dollars);
FISCALON_API int fiscalon_payment_set_paid_amount(fiscalon_payment* payment, const char* cents);
/* Payment date, 8 digits: month, day, year. */
FISCALON_API int fiscalon_payment_get_paid_date(fiscalon_payment* payment, const char** text);
FISCALON_API int fiscalon_payment_set_paid_date(fiscalon_payment* payment, const char* text);
/* How many items the generic remittance screen collects, "1" to "12". */
FISCALON_API int fiscalon_payment_get_number_of_info_collect(fiscalon_payment* payment, const char** text);
FISCALON_API int fiscalon_payment_set_number_of_info_collect(fiscalon_payment* payment, const char* text);
/* Full path of the record file. */
FISCALON_API int fiscalon_payment_get_gov_filename(fiscalon_payment* payment, const char** path);
FISCALON_API int fiscalon_payment_set_gov_filename(fiscalon_payment* payment, const char* path);
/* The person entering, at most 30 characters, and that person's title, at most 20: longer ones fail the output. */
FISCALON_API int fiscalon_payment_get_enter_name(fiscalon_payment* payment, const char** text);
FISCALON_API int fiscalon_payment_set_enter_name(fiscalon_payment* payment, const char* text);
FISCALON_API int fiscalon_payment_get_enter_title(fiscalon_payment* payment, const char** text);
FISCALON_API int fiscalon_payment_set_enter_title(fiscalon_payment* payment, const char* text);
/* 1: the payment is on hold and has no fixed date. 8 bits without a sign; error 6 for a number beyond them. */
FISCALON_API int fiscalon_payment_get_ap_hold_flg(fiscalon_payment* payment, int32_t* flag);
FISCALON_API int fiscalon_payment_set_ap_hold_flg(fiscalon_payment* payment, int32_t flag);
/* Four characters that head each record of the payment, taken as they are. */
FISCALON_API int fiscalon_payment_get_seq_number(fiscalon_payment* payment, const char** text);
FISCALON_API int fiscalon_payment_set_seq_number(fiscalon_payment* payment, const char* text);
/* Always 0. */
FISCALON_API int fiscalon_payment_get_show_gst58(fiscalon_payment* payment, int32_t* shown);
/* Name offered on the donation screen. */
FISCALON_API int fiscalon_payment_get_business_name(fiscalon_payment* payment, const char** text);
FISCALON_API int fiscalon_payment_set_business_name(fiscalon_payment* payment, const char* text);
/* FISCALON_TRUE, and nothing else: records go to the file; else to a collection. 16 bits with a sign, kept as they are,
 * 0 at first; error 6 for a number that they do not hold. */
FISCALON_API int fiscalon_payment_get_write_file(fiscalon_payment* payment, int32_t* flag);
FISCALON_API int fiscalon_payment_set_write_file(fiscalon_payment* payment, int32_t flag);
/* The records of the last screen that ended with OK and without a file: a handle to the screen's own collection, which
 * its next output empties. NULL where there is none; NULL takes them away. */
FISCALON_API int fiscalon_payment_get_pc4_records(fiscalon_payment* payment, fiscalon_records** records);
FISCALON_API int fiscalon_payment_set_pc4_records(fiscalon_payment* payment, fiscalon_records* records);

/* Shows the screen of a two-digit code (`ShowLevyraScreen`) and waits for the user. `chosen` becomes 1: OK was chosen,
 * and the records are in the file or, with `write_file` not exactly True, in `pc4_records`. 0: nothing was written.
 * Errors, all with the source "Fiscalon.ShowLevyraScreen": FISCALON_ERROR_INVALID_SCREEN_TYPE for an unknown code, 91
 * without a front end, 400 while the form is shown already, FISCALON_ERROR_CALLBACK of the scripted user, and whatever
 * left the form. An error leaves the form loaded: the next show of that screen goes on where it ended. */
FISCALON_API int fiscalon_payment_show(fiscalon_payment* payment, const char* screen_code, int32_t* chosen);

/* ---- The check of one payment ------------------------------------------------------------------------------------ */

/* Checks the records of one payment without a screen (`clsValidateAddInfo`): screen codes "03" and "20". */
typedef struct fiscalon_check fiscalon_check;

/* A check that has nothing to check yet. */
FISCALON_API int fiscalon_check_create(fiscalon_check** check);
FISCALON_API int fiscalon_check_destroy(fiscalon_check** check);

/* "03" or "20": whose rules the records must keep. */
FISCALON_API int fiscalon_check_get_screen_code(fiscalon_check* check, const char** text);
FISCALON_API int fiscalon_check_set_screen_code(fiscalon_check* check, const char* text);
/* Kept for the host; no rule looks at it. */
FISCALON_API int fiscalon_check_get_number_of_fields(fiscalon_check* check, const char** text);
FISCALON_API int fiscalon_check_set_number_of_fields(fiscalon_check* check, const char* text);
/* Screen "20" asks biller "001052" alone for a remittance type. */
FISCALON_API int fiscalon_check_get_biller_code(fiscalon_check* check, const char** text);
FISCALON_API int fiscalon_check_set_biller_code(fiscalon_check* check, const char* text);
/* Kept for the host; no rule looks at them. */
FISCALON_API int fiscalon_check_get_biller_name(fiscalon_check* check, const char** text);
FISCALON_API int fiscalon_check_set_biller_name(fiscalon_check* check, const char* text);
FISCALON_API int fiscalon_check_get_payment_date(fiscalon_check* check, const char** text);
FISCALON_API int fiscalon_check_set_payment_date(fiscalon_check* check, const char* text);
/* The amount to be paid. Written in cents, read back in dollars. Error 6 for a number beyond all floats. */
FISCALON_API int fiscalon_check_get_payment_amount(fiscalon_check* check, const char** dollars);
FISCALON_API int fiscalon_check_set_payment_amount(fiscalon_check* check, const char* cents);
/* The records to check, NULL for none, which a check tells as error 91. */
FISCALON_API int fiscalon_check_get_pc4_records(fiscalon_check* check, fiscalon_records** records);
FISCALON_API int fiscalon_check_set_pc4_records(fiscalon_check* check, fiscalon_records* records);
/* All that the last check found, ", " between; empty where it found nothing. */
FISCALON_API int fiscalon_check_get_invalid_reason(fiscalon_check* check, const char** text);
FISCALON_API int fiscalon_check_set_invalid_reason(fiscalon_check* check, const char* text);
/* The records as a check cuts them into fields: it replaces what a host sets here, and leaves NULL, unless an error
 * ended it. */
FISCALON_API int fiscalon_check_get_pc4_gov_format_records(fiscalon_check* check, fiscalon_gov_formats** formats);
FISCALON_API int fiscalon_check_set_pc4_gov_format_records(fiscalon_check* check, fiscalon_gov_formats* formats);
FISCALON_API int fiscalon_check_get_pc4_free_format_records(fiscalon_check* check, fiscalon_free_formats** formats);
FISCALON_API int fiscalon_check_set_pc4_free_format_records(fiscalon_check* check, fiscalon_free_formats* formats);

/* Whether the records keep all rules (`IsInfoValid`), 1 or 0; the reason tells the rest. A run-time error in a rule is
 * a reason, "Error <number> - <description>", and a line of the error log; one in writing that log is an error here. */
FISCALON_API int fiscalon_check_is_info_valid(fiscalon_check* check, int32_t* valid);

/* ---- Whole batches ----------------------------------------------------------------------------------------------- */

/* A text of a verdict: UTF-8 with its size, which zeros within count in, and a zero behind. */
typedef struct fiscalon_text {
  const char* data; /* the first byte */
  size_t size;      /* how many bytes */
} fiscalon_text;

/* One reason against a payment, and where it lies. */
typedef struct fiscalon_fault {
  size_t size;           /* from one fault to the next */
  uint64_t line;         /* of the record file, from 1 */
  fiscalon_text field;   /* its number; empty where no numbered field is meant */
  fiscalon_text name;    /* empty for a number that the screen does not use, and where no field is meant */
  fiscalon_text value;   /* what was found there, without the blanks behind it */
  fiscalon_text code;    /* which test it failed: a word that stays the same, such as "blank" */
  fiscalon_text message; /* its part of the reason */
} fiscalon_fault;

/* The verdict on one payment. */
typedef struct fiscalon_verdict {
  size_t size;                  /* from one verdict to the next, where several lie in a row */
  uint64_t row;                 /* its line in the payments list, from 1 */
  uint64_t line;                /* its first line in the record file, from 1; 0 where no faults are told */
  int32_t valid;                /* 1 or 0 */
  int32_t unused;               /* keeps what follows in its place; 0 */
  fiscalon_text seq;            /* the payment's `SeqNumber` */
  fiscalon_text screen;         /* its screen code */
  fiscalon_text reason;         /* empty where the payment is good */
  fiscalon_text lines;          /* the payment's lines of the record file, where they are wanted */
  const fiscalon_fault* faults; /* in the order of the reason, each `faults->size` behind the one before */
  size_t fault_count;           /* 0 where they are not wanted */
} fiscalon_verdict;

/* How far a batch is, and at its end the counts. */
typedef struct fiscalon_batch_counts {
  size_t size;          /* sizeof(fiscalon_batch_counts), by the host */
  uint64_t payments;    /* judged so far */
  uint64_t invalid;     /* of those, the bad ones */
  uint64_t bytes;       /* of records that were judged */
  uint64_t total_bytes; /* of how many; 0 where that is not known */
} fiscalon_batch_counts;

/* What to judge, and whom to tell. Set all of it to 0 first, and then what is wanted. */
typedef struct fiscalon_batch {
  size_t size; /* sizeof(fiscalon_batch), by the host */

  /* The two files by path, in UTF-8 or whatever bytes the system's paths are made of; or in the host's memory, where
   * the path is only how messages call it. */
  const char* payments_path;
  const char* records_path;
  const void* payments_bytes; /* NULL: the file is read */
  size_t payments_size;       /* how many bytes */
  const void* records_bytes;  /* NULL: the file is read */
  size_t records_size;        /* how many bytes */

  /* Part I of N, from 1; 0 of 0 is the whole. The verdicts of all parts in their order are those of the whole. */
  uint64_t part;
  uint64_t parts;
  /* Threads that judge; 0 for as many as there are processors. */
  uint32_t jobs;
  /* Whether verdicts on good payments are wanted too, where the faults of bad ones lie, and the lines: not 0. */
  int32_t wants_valid;
  int32_t wants_faults;
  int32_t wants_lines;

  /* Called one after the other, from whatever thread is at it, with `context`. Each may be NULL. What is not 0 ends the
   * batch: FISCALON_ERROR_CALLBACK. All that a callback is given lasts for the call. */
  void* context;
  /* Verdicts in the order of the batch, thousands at a time. Their texts lie in one piece, so that a host may take them
   * all at once: sequence number, screen and reason of each, each with its zero, and a line feed behind each reason's.
   * Where lines or faults are told, theirs stand ahead of them. */
  int (*on_verdicts)(void* context, const fiscalon_verdict* verdicts, size_t count);
  /* Every few thousand payments. */
  int (*on_progress)(void* context, const fiscalon_batch_counts* so_far);
  /* Before the call fails with FISCALON_ERROR_BATCH: each thing that keeps the batch from being judged. The line is 0
   * where it is the file's own. */
  int (*on_problem)(void* context, const char* file, uint64_t line, const char* reason);
} fiscalon_batch;

/* Judges a batch: a payments list and a file with the records of its payments, in the same order, with the verdicts of
 * `is_info_valid`, as of today by the library's clock. The counts tell of all payments, whichever verdicts were wanted;
 * NULL for none. Where it fails no verdict counts. Callbacks may call back in, and so may other threads; the screen of
 * neither can be shown meanwhile. */
FISCALON_API int fiscalon_validate_batch(const fiscalon_batch* batch, fiscalon_batch_counts* counts);

/* Judges payments one by one from the host's own memory, with the verdicts of `is_info_valid`, without its logs, all as
 * of the day on which it was created. */
typedef struct fiscalon_judge fiscalon_judge;

/* As of today by the library's clock. */
FISCALON_API int fiscalon_judge_create(fiscalon_judge** judge);
FISCALON_API int fiscalon_judge_destroy(fiscalon_judge** judge);
/* Whether a payment's records, without quotes, meet the rules of its screen, and why not; where its faults lie too, if
 * `wants_faults` is not 0, their lines being which record it is, from 1. `cents` is the amount to be paid. The verdict
 * has its size set by the host; row, sequence and lines say nothing, and its texts live until the next call with the
 * same judge. */
FISCALON_API int fiscalon_judge_payment(fiscalon_judge* judge, const char* screen_code, const char* biller_code,
                                        int64_t cents, const char* const* records, size_t count, int32_t wants_faults,
                                        fiscalon_verdict* verdict);

/* ---- What is set once for the process ---------------------------------------------------------------------------- */

/* Installs the front end that shows forms, boxes and help, in the place of the one before; NULL takes it away.
 * "qt": windows, of the Debian package libfiscalon-c-qt. "win32": windows by the system's own controls. "terminal":
 * forms on the terminal of standard input and output. "scripted": nobody is asked; each form closes as it was hidden
 * (see fiscalon_use_scripted_user). FISCALON_ERROR_FRONT_END says what is missing and which package brings it. */
FISCALON_API int fiscalon_use_front_end(const char* name);
/* Why a front end can't be installed here and now, in one line; empty where it can. The text lives until the next call
 * of this function. */
FISCALON_API int fiscalon_front_end_hindrance(const char* name, const char** reason);
/* The folder where front ends lie that are loaded on demand; NULL for the usual one: that of the environment variable
 * FISCALON_FRONT_ENDS or else the folder beside the library. In the bytes of the system's paths. */
FISCALON_API int fiscalon_use_front_end_folder(const char* path);

/* Has it be that moment, of a real day from the year 100 to 9999, until fiscalon_reset: for tests. Else error 5. */
FISCALON_API int fiscalon_use_fixed_clock(int32_t year, int32_t month, int32_t day, int32_t hour, int32_t minute,
                                          int32_t second);
/* Has the user be one of "en-CA", "en-US" or "fr-CA", until fiscalon_reset, whatever the system says; "system" goes by
 * the system again. Error 5 for another name. */
FISCALON_API int fiscalon_use_locale(const char* name);
/* Has forms and boxes be shown in that language, until fiscalon_reset; a form that is up keeps its own. "en", which is
 * how it is without this call, or "fr". Error 5 for another name. Only what the user reads changes: properties,
 * records, logs and errors stay in English, and numbers and dates go by the locale. */
FISCALON_API int fiscalon_use_language(const char* name);
/* Puts the library back to how it is when it has just been loaded: no front end, no form made, no logs, the system's
 * clock and locale. Handles of the host stay, and keep their properties. */
FISCALON_API int fiscalon_reset(void);

/* The logs. `PlayByPlayEnabled`: any number but 0 turns the play-by-play on; error 6 for one beyond 16 bits. */
FISCALON_API int fiscalon_set_play_by_play_enabled(int32_t flag);
/* `MainPath`: the folder of both logs. */
FISCALON_API int fiscalon_set_main_path(const char* path);
/* `SessionNumber`: its last three digits stand in lines of the error log. Error 6 beyond 32 bits. */
FISCALON_API int fiscalon_set_session_number(double number);

/* ---- The code page ----------------------------------------------------------------------------------------------- */

/* Record files and logs are in Windows-1252. Bytes of it become UTF-8, with a zero behind, in a place of `capacity`
 * bytes. `needed` becomes the size without the zero; where the place is too small, or NULL, nothing else is done. */
FISCALON_API int fiscalon_to_utf8(const char* bytes, size_t size, char* utf8, size_t capacity, size_t* needed);
/* The other way. FISCALON_ERROR_TEXT for what is no UTF-8 or has no place in Windows-1252. */
FISCALON_API int fiscalon_from_utf8(const char* utf8, size_t size, char* bytes, size_t capacity, size_t* needed);

/* ---- The scripted user ------------------------------------------------------------------------------------------- */

/* A form that is up, with a user who acts on it and reads what it shows. The callback's that is given it, while that
 * runs. */
typedef struct fiscalon_form fiscalon_form;

enum {
  FISCALON_BOX_PLAIN = 0,       /* no mark */
  FISCALON_BOX_CRITICAL = 1,    /* an error */
  FISCALON_BOX_QUESTION = 2,    /* a question */
  FISCALON_BOX_EXCLAMATION = 3, /* a warning */
  FISCALON_BOX_INFORMATION = 4  /* news */
};
enum {
  FISCALON_BUTTONS_OK = 0,        /* OK */
  FISCALON_BUTTONS_OK_CANCEL = 1, /* OK and Cancel */
  FISCALON_BUTTONS_YES_NO = 2     /* Yes and No */
};
enum {
  FISCALON_ANSWER_OK = 0,     /* OK was pressed */
  FISCALON_ANSWER_CANCEL = 1, /* Cancel */
  FISCALON_ANSWER_YES = 2,    /* Yes */
  FISCALON_ANSWER_NO = 3      /* No */
};

/* A message box. */
typedef struct fiscalon_box {
  size_t size;            /* of this struct */
  const char* text;       /* what it says */
  const char* title;      /* empty: the host application's own name is shown */
  int32_t style;          /* FISCALON_BOX_... */
  int32_t buttons;        /* FISCALON_BUTTONS_... */
  int32_t default_answer; /* FISCALON_ANSWER_... of Enter */
  int32_t closed_answer;  /* of a box that is closed without a button: the most careful one */
} fiscalon_box;

/* The host's routines that play the user, called on the thread that shows the screen, with `context`. Each may be NULL.
 * What a routine answers is whether it went well: 0. Anything else ends the show, and the show fails with
 * FISCALON_ERROR_CALLBACK. All that they are given lasts for the call. They may call everything but what takes away
 * what they stand on, the front end and fiscalon_reset: FISCALON_ERROR_BUSY. */
typedef struct fiscalon_scripted_user {
  size_t size;   /* sizeof(fiscalon_scripted_user), by the host */
  void* context; /* the host's own, for its routines */
  /* A form is up. A form that is still up when this returns is closed as hidden. */
  int (*on_form)(void* context, fiscalon_form* form);
  /* A box is up. `answer` is the closed answer until the routine sets another; one that the box does not offer is no
   * sense. Without a routine a box gets its default answer. */
  int (*on_box)(void* context, const fiscalon_box* box, int32_t* answer);
  /* It beeps, at an entry that is refused. */
  int (*on_beep)(void* context);
  /* Help is asked for: a file at a context number. */
  int (*on_help)(void* context, const char* file, int32_t help_context);
  /* A handler is about to run, such as "txtAmountPayable_Change". */
  int (*on_handler)(void* context, const char* handler);
} fiscalon_scripted_user;

/* Installs the front end that needs no display, with these routines. They are copied. */
FISCALON_API int fiscalon_use_scripted_user(const fiscalon_scripted_user* user);

/* The form's name, such as "frmDueDateAmount". */
FISCALON_API int fiscalon_form_get_name(fiscalon_form* form, const char** name);
/* Whether it is still up: 1 or 0. Acts on one that is not, and looks at it, are FISCALON_ERROR_FORM_CLOSED. */
FISCALON_API int fiscalon_form_is_up(fiscalon_form* form, int32_t* up);
/* Whether it counts as accepted by now (`Chosen`), 1 or 0; the show's result will tell the same. Also when it is no
 * longer up. */
FISCALON_API int fiscalon_form_get_chosen(fiscalon_form* form, int32_t* chosen);
/* The title of its window. */
FISCALON_API int fiscalon_form_get_title(fiscalon_form* form, const char** title);
/* The name of the control that has the focus; empty where none has. */
FISCALON_API int fiscalon_form_get_focus(fiscalon_form* form, const char** control);
/* What it says without a box, such as which entry keeps the focus in silence; empty mostly, and when it is no longer
 * up. */
FISCALON_API int fiscalon_form_get_status(fiscalon_form* form, const char** text);

enum {
  FISCALON_CONTROL_LABEL = 0,          /* a label */
  FISCALON_CONTROL_TEXT_FIELD = 1,     /* a text field */
  FISCALON_CONTROL_BUTTON = 2,         /* a push button */
  FISCALON_CONTROL_CHECK_BOX = 3,      /* a check box */
  FISCALON_CONTROL_OPTION_BUTTON = 4,  /* an option button */
  FISCALON_CONTROL_DROP_DOWN_LIST = 5, /* a list that drops down */
  FISCALON_CONTROL_LIST_BOX = 6,       /* a list */
  FISCALON_CONTROL_FRAME = 7           /* a frame around others */
};

/* What a user sees of a control. Its texts live until the next call with the same form. */
typedef struct fiscalon_control {
  size_t size;           /* sizeof(fiscalon_control), by the host */
  const char* name;      /* as handlers bear it; members of arrays are named "Box(3)" */
  int32_t kind;          /* FISCALON_CONTROL_... */
  int32_t items;         /* the rows of a list */
  const char* text;      /* a field's text, a button's or label's caption as designed, a list's selected row */
  const char* selection; /* the part of a field's text that is selected */
  int32_t checked;       /* 1 or 0, as all below */
  int32_t locked;        /* a field that the user can't change */
  int32_t enabled;       /* takes input */
  int32_t visible;       /* is there at all */
} fiscalon_control;

/* How many controls the form has, labels and frames among them. */
/* How many controls it has, labels and frames among them; also when it is no longer up. */
FISCALON_API int fiscalon_form_control_count(fiscalon_form* form, int32_t* count);
/* By position, from 1 (error 9), or by name (error 5). */
FISCALON_API int fiscalon_form_control_at(fiscalon_form* form, int64_t position, fiscalon_control* control);
FISCALON_API int fiscalon_form_control_of(fiscalon_form* form, const char* name, fiscalon_control* control);
/* A row of a list, from 0 (error 9; 5 for what is no list). */
FISCALON_API int fiscalon_form_get_row(fiscalon_form* form, const char* control, int32_t row, const char** text);

/* Types each character into the control that has the focus by then; a tab character goes on to the next control. Where
 * the form closes before the last one: FISCALON_ERROR_FORM_CLOSED. */
FISCALON_API int fiscalon_form_type(fiscalon_form* form, const char* text);
/* Tab, Shift+Tab, Enter, Shift+Enter, Ctrl+Enter, Escape, Backspace, Delete, Space, Left, Right, Up, Down, Home, End or
 * Alt+LETTER. Error 5 for another name. */
FISCALON_API int fiscalon_form_press_key(fiscalon_form* form, const char* key);
/* Presses the mouse on a control without releasing it. Error 5 for a name that no control has, here and below. */
FISCALON_API int fiscalon_form_press_mouse(fiscalon_form* form, const char* control);
/* Presses the mouse on a control and releases it. */
FISCALON_API int fiscalon_form_click(fiscalon_form* form, const char* control);
/* Picks a row of a list, from 0 (error 9; 5 for what is no list). */
FISCALON_API int fiscalon_form_choose(fiscalon_form* form, const char* control, int32_t row);
/* Pastes over the selection of the control that has the focus. */
FISCALON_API int fiscalon_form_paste(fiscalon_form* form, const char* text);
/* Closes the window: 0 by its close box, 2 the system ends, 3 the task manager, 4 and 5 what stands above it closes, 1
 * by code. Error 5 for another number. */
FISCALON_API int fiscalon_form_close(fiscalon_form* form, int32_t reason);

#ifdef __cplusplus
}
#endif

#endif
