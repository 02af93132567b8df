// What a host in C is left with when memory fails it: error 7, no leak, and a library that does the same work as if
// nothing had been.

#include <new>
#include <string>

#include "tests/bindings/c/host.h"
#include "tests/faults/every_allocation.h"

namespace fiscalon {
namespace {

/// Throws what C++ hosts get where memory failed the call.
void Expect(int answer) {
  if (answer == 0)
    return;
  const fiscalon_error error = LastError();
  const bool memoryFailed = error.number == FISCALON_ERROR_OUT_OF_MEMORY ||
                            (error.number == FISCALON_ERROR_CALLBACK &&
                             std::string_view(error.description).find("error 7") != std::string_view::npos);
  if (!memoryFailed)
    ADD_FAILURE() << error.number << " " << error.description;
  throw std::bad_alloc();
}

std::string Read(int answer, const char* const& text) {
  Expect(answer);
  return text;
}

/// A payment that is set, shown, taken and checked.
class SessionOfAHost : public HostWork {
 public:
  SessionOfAHost() {
    EXPECT_EQ(fiscalon_reset(), 0);
    EXPECT_EQ(fiscalon_use_locale("en-CA"), 0);
    EXPECT_EQ(fiscalon_use_fixed_clock(2026, 6, 15, 13, 5, 9), 0);
  }
  ~SessionOfAHost() override { EXPECT_EQ(fiscalon_reset(), 0); }
  SessionOfAHost(const SessionOfAHost&) = delete;
  SessionOfAHost& operator=(const SessionOfAHost&) = delete;

  std::string Do() override {
    said_.clear();
    fiscalon_scripted_user user = {};
    user.size = sizeof user;
    user.context = this;
    user.on_form = [](void* self, fiscalon_form* form) { return static_cast<SessionOfAHost*>(self)->Act(form); };
    user.on_box = [](void* self, const fiscalon_box* box, int32_t*) {
      static_cast<SessionOfAHost*>(self)->boxes_ += box->text[0] == '\0' ? 0 : 1;
      return 0;
    };
    boxes_ = 0;
    Expect(fiscalon_use_scripted_user(&user));
    HeldPayment payment;
    Expect(fiscalon_payment_create(payment.Place()));
    Expect(fiscalon_payment_set_comp_name(payment, "Summit Levies of a name that takes memory of its own"));
    Expect(fiscalon_payment_set_paid_amount(payment, "12345"));
    Expect(fiscalon_payment_set_enter_name(payment, "H\xC3\xA9l\xC3\xA8ne of a long name"));
    Expect(fiscalon_payment_set_seq_number(payment, "0001"));
    Expect(fiscalon_payment_set_zelmor_number(payment, "12345678901234567890"));
    int32_t chosen = 0;
    Expect(fiscalon_payment_show(payment, "15", &chosen));
    said_ += chosen == 1 ? "chosen\n" : "not chosen\n";
    HeldRecords records;
    Expect(fiscalon_payment_get_pc4_records(payment, records.Place()));
    int32_t count = 0;
    Expect(fiscalon_records_count(records, &count));
    for (int32_t i = 1; i <= count; ++i) {
      HeldRecord record;
      const char* text = nullptr;
      Expect(fiscalon_records_item_at(records, i, record.Place()));
      said_ += Read(fiscalon_record_get_description(record, &text), text) + "\n";
    }
    Check(records);
    Expect(fiscalon_use_front_end(nullptr));
    return said_ + std::to_string(boxes_);
  }

 private:
  int Act(fiscalon_form* form) {
    fiscalon_control control = {};
    control.size = sizeof control;
    const char* text = nullptr;
    if (fiscalon_form_get_title(form, &text) != 0 || fiscalon_form_get_focus(form, &text) != 0 ||
        fiscalon_form_get_status(form, &text) != 0 || fiscalon_form_click(form, "cmdOK") != 0 ||
        fiscalon_form_type(form, "202612") != 0 || fiscalon_form_paste(form, "12345") != 0 ||
        fiscalon_form_control_of(form, "txtAmountPayable", &control) != 0)
      return -1;
    return fiscalon_form_click(form, "cmdOK");
  }

  void Check(fiscalon_records* records) {
    HeldCheck check;
    Expect(fiscalon_check_create(check.Place()));
    Expect(fiscalon_check_set_screen_code(check, "03"));
    Expect(fiscalon_check_set_payment_amount(check, "99999"));
    Expect(fiscalon_check_set_pc4_records(check, records));
    HeldRecord added;
    Expect(fiscalon_records_add(records, "20260615", " 000012345", "a text that takes memory of its own", "a key",
                                added.Place()));
    Expect(fiscalon_records_remove_of(records, "a key"));
    int32_t valid = 0;
    Expect(fiscalon_check_is_info_valid(check, &valid));
    const char* text = nullptr;
    said_ += Read(fiscalon_check_get_invalid_reason(check, &text), text) + "\n";
  }

  std::string said_;
  int boxes_ = 0;
};

TEST(MemoryFaultsOfC, EachAllocationOfASessionMayFail) {
  for (const FaultLasts lasts : {FaultLasts::Once, FaultLasts::FromThenOn})
    ExpectEachAllocationMayFail(lasts, [] { return std::make_unique<SessionOfAHost>(); });
}

/// Everything that makes, fills and asks collections and judges, on texts that take memory.
class OtherWork : public HostWork {
 public:
  std::string Do() override {
    std::string said;
    const char* const longText = "\xC3\xA9\xC3\xA9 a text that takes memory of its own";
    Held<fiscalon_gov_formats, fiscalon_gov_formats_destroy> gov;
    Held<fiscalon_gov_format, fiscalon_gov_format_destroy> format, alone;
    Expect(fiscalon_gov_formats_create(gov.Place()));
    Expect(fiscalon_gov_format_create(alone.Place()));
    Expect(fiscalon_gov_format_set_filler1(alone, longText));
    Expect(fiscalon_gov_formats_add(gov, "", "", "", "", longText, longText, "", longText, format.Place()));
    const char* text = nullptr;
    said += Read(fiscalon_gov_format_get_contact_name(format, &text), text);
    Held<fiscalon_free_formats, fiscalon_free_formats_destroy> slots;
    Held<fiscalon_free_format, fiscalon_free_format_destroy> slot, slotAlone;
    Expect(fiscalon_free_formats_create(slots.Place()));
    Expect(fiscalon_free_format_create(slotAlone.Place()));
    Expect(fiscalon_free_format_set_field_value(slotAlone, longText));
    Expect(fiscalon_free_formats_add(slots, "01", longText, longText, nullptr));
    Expect(fiscalon_free_formats_item_of(slots, longText, slot.Place()));
    said += Read(fiscalon_free_format_get_field_value(slot, &text), text);
    Expect(fiscalon_front_end_hindrance("scripted", &text));
    Expect(fiscalon_set_main_path(longText));
    Expect(fiscalon_use_front_end("scripted"));
    Expect(fiscalon_use_front_end(nullptr));
    char place[64];
    size_t needed = 0;
    Expect(fiscalon_from_utf8(longText, strlen(longText), place, sizeof place, &needed));
    Expect(fiscalon_to_utf8(place, needed, place, sizeof place, &needed));
    said += place;
    HeldJudge judge;
    Expect(fiscalon_judge_create(judge.Place()));
    fiscalon_verdict verdict = {};
    verdict.size = sizeof verdict;
    const char* const records[] = {"PC40001T", "PC40001F01000000000000012345"};
    Expect(fiscalon_judge_payment(judge, "03", longText, 1, records, 2, 1, &verdict));
    return said + verdict.reason.data + verdict.faults->message.data;
  }
};

TEST(MemoryFaultsOfC, EachAllocationOfOtherWorkMayFail) {
  ASSERT_EQ(fiscalon_reset(), 0);
  for (const FaultLasts lasts : {FaultLasts::Once, FaultLasts::FromThenOn})
    ExpectEachAllocationMayFail(lasts, [] { return std::make_unique<OtherWork>(); });
  ASSERT_EQ(fiscalon_reset(), 0);
}

class BatchOfAHost : public HostWork {
 public:
  explicit BatchOfAHost(uint32_t jobs) : jobs_(jobs) {}

  std::string Do() override {
    said_.clear();
    fiscalon_batch batch = {};
    batch.size = sizeof batch;
    batch.payments_bytes = payments_.data();
    batch.payments_size = payments_.size();
    batch.records_bytes = records_.data();
    batch.records_size = records_.size();
    batch.jobs = jobs_;
    batch.part = batch.parts = 1;
    batch.wants_valid = batch.wants_faults = batch.wants_lines = 1;
    batch.context = this;
    batch.on_verdicts = [](void* context, const fiscalon_verdict* verdicts, size_t count) {
      for (size_t i = 0; i < count; ++i)
        static_cast<BatchOfAHost*>(context)->said_.append(verdicts[i].reason.data).append("|");
      return 0;
    };
    Expect(fiscalon_validate_batch(&batch, nullptr));
    return said_;
  }

 private:
  static std::string Line(std::string text) {
    text.resize(160, ' ');
    return "\"" + text + "\"\r\n";
  }

  uint32_t jobs_;
  std::string payments_ = "seq,screen,biller,amount\n0001,03,,12345\n0002,03,,99999\n";
  std::string records_ =
      Line("PC40001T                                Jane Doe") +
      Line("PC40001F010000000000000123450220260531          0300000000000050000004000000000000000012") +
      Line("PC40002T                                H\xE9l\xE8ne") +
      Line("PC40002F010000000000000123450220260531          0300000000000050000004000000000000000012");
  std::string said_;
};

TEST(MemoryFaultsOfC, EachAllocationOfABatchMayFail) {
  ASSERT_EQ(fiscalon_reset(), 0);
  ASSERT_EQ(fiscalon_use_fixed_clock(2026, 6, 15, 13, 5, 9), 0);
  for (const uint32_t jobs : {1u, 3u})
    for (const FaultLasts lasts : {FaultLasts::Once, FaultLasts::FromThenOn})
      ExpectEachAllocationMayFail(lasts, [&] { return std::make_unique<BatchOfAHost>(jobs); });
  ASSERT_EQ(fiscalon_reset(), 0);
}

}  // namespace
}  // namespace fiscalon
