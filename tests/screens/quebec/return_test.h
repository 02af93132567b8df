#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/forms/keys.h"
#include "core/forms/label.h"
#include "core/forms/text_field.h"
#include "tests/support/payment_test.h"
#include "tests/support/random_acts.h"
#include "tests/support/ruled_record.h"

/// What the tests of the returns to Revenue Quebec share.
namespace fiscalon {

inline constexpr const char* kRefund =
    "If the Amount Payable is less than zero, the Amount to be paid must be zero (0.00).";
inline constexpr const char* kMatch = "The Amount Payable must match the Amount to be paid.";

inline TextField& Field(const Form& form, std::string_view name) {
  return dynamic_cast<TextField&>(form.ControlNamed(name));
}

inline Label& LabelOf(const Form& form, std::string_view name) {
  return dynamic_cast<Label&>(form.ControlNamed(name));
}

inline void ExpectDates(const Form& form, const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    EXPECT_EQ(Field(form, name).MaxLength(), 8) << name;
    EXPECT_EQ(Field(form, name).Designed().alignment, Alignment::Left) << name;
  }
}

inline void ExpectAmounts(const Form& form, const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    EXPECT_EQ(Field(form, name).MaxLength(), 12) << name;
    EXPECT_EQ(Field(form, name).Designed().alignment, Alignment::Right) << name;
    EXPECT_TRUE(Field(form, name).Designed().tabStop) << name;
    EXPECT_FALSE(Field(form, name).Designed().locked) << name;
  }
}

inline void ExpectTotal(const Form& form, const std::string& name) {
  EXPECT_EQ(Field(form, name).MaxLength(), 12) << name;
  EXPECT_EQ(Field(form, name).Designed().alignment, Alignment::Right) << name;
  EXPECT_FALSE(Field(form, name).Designed().tabStop) << name;
  EXPECT_TRUE(Field(form, name).Designed().locked) << name;
}

/// A full field does not move on while the next control is disabled.
inline void ExpectToStay(const Form& form, UserDriver& user, const std::string& full, std::string_view text,
                         const std::string& next) {
  form.ControlNamed(next).Enabled(false);
  user.PressMouse(form.ControlNamed(full));
  Type(user, text);
  EXPECT_EQ(user.FocusName(), full);
  form.ControlNamed(next).Enabled(true);
}

/// A return that is filled in and sent.
template <class FormClass>
class ReturnTest : public PaymentTest<FormClass> {
 protected:
  using PaymentTest<FormClass>::PaymentTest;

  /// OK refuses the changed form with this box and gives the focus to this control.
  void ExpectRefusal(const std::function<void(FormClass& form)>& change, const std::string& message,
                     const std::string& focus) {
    EXPECT_FALSE(this->EnterAndPressOk(change));
    const std::vector<BoxRequest> boxes = this->TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, message);
    EXPECT_EQ(boxes[0].style, MessageStyle::Critical);
    EXPECT_EQ(this->focusBehindOk, focus);
  }

  /// An amount is refused by its label, as it reads now.
  void ExpectAmountsToBeRefusedByTheirCaptions(const std::vector<std::string>& names) {
    this->template Show<FormClass>(this->Code(), [&](FormClass& form, UserDriver& user) {
      this->FillIn(form, user);
      for (const std::string& name : names) {
        LabelOf(form, "lbl" + name).Caption(AsGiven(name + " line"));
        user.PressMouse(Field(form, "txt" + name));
        Field(form, "txt" + name).Text("-1");
        user.PressMouse(form.cmdOK);
        const std::vector<BoxRequest> boxes = this->TakeBoxes();
        ASSERT_EQ(boxes.size(), 1U) << name;
        EXPECT_EQ(boxes[0].text, name + " line cannot be negative.");
        EXPECT_EQ(boxes[0].style, MessageStyle::Plain);
        EXPECT_EQ(user.FocusName(), "txt" + name);
        Field(form, "txt" + name).Text("1.00");
      }
    });
  }

  void ExpectOnlyEnterByItselfToMoveOn(const std::string& from, const std::string& next) {
    this->template Show<FormClass>(this->Code(), [&](FormClass& form, UserDriver& user) {
      this->FillIn(form, user);
      user.PressMouse(form.ControlNamed(from));
      for (const int shift : {shift_state::kShift, shift_state::kControl, shift_state::kAlt}) {
        user.PressKey({.keyCode = key::kEnter, .shift = shift, .character = key::kEnter});
        EXPECT_EQ(user.FocusName(), from) << shift;
      }
      user.PressKey({.keyCode = key::kEnter, .character = key::kEnter});
      EXPECT_EQ(user.FocusName(), next);
    });
  }
};

/// Random acts on a return, whose records must be in shape and whose balance must suit the payment.
template <class FormClass>
class RandomReturnTest : public RandomActsTest<FormClass> {
 protected:
  static inline const std::vector<RandomPayment> kPayments = {{.cents = "12345"}, {.cents = "12345"}, {.cents = "5"},
                                                              {.cents = "0"},     {.cents = "0"},     {.cents = "-5"},
                                                              {.cents = "1E30"}};

  /// What a slot of 18 columns holds, in cents: digits, behind a "-" below zero.
  static long long CentsIn(const std::string& record, size_t slot) {
    const std::string value = record.substr(10 + 20 * slot, 18);
    EXPECT_EQ(value.find_first_not_of("0123456789", value[0] == '-' ? 1 : 0), std::string::npos) << value;
    return std::stoll(value);
  }

  static void ExpectToSuit(long long balance, const RandomPayment& payment) {
    EXPECT_TRUE(payment.cents == std::to_string(balance) || (payment.cents == "0" && balance < 0)) << balance;
  }

  /// The records, all in their shape: the first one with a start and an end of eight columns, the slots of the others
  /// by their numbers, two characters each.
  std::vector<std::string> CheckedRecords(const std::string& seqNumber, const std::vector<std::string>& numbers) {
    const std::vector<std::string> records = this->Records();
    EXPECT_EQ(records.size(), numbers.size() + 1);
    EXPECT_EQ(records[0], Ruled("PC4" + seqNumber + "T" + records[0].substr(8, 16) + std::string(16, ' ') + "Jane Doe" +
                                std::string(22, ' ') + "Clerk"));
    for (size_t i = 1; i < records.size(); ++i) {
      EXPECT_EQ(records[i].size(), 160U);
      EXPECT_EQ(records[i].substr(0, 8), "PC4" + seqNumber + "F");
      EXPECT_EQ(records[i].substr(88), std::string(72, ' '));
      for (size_t slot = 0; slot < 4; ++slot)
        EXPECT_EQ(records[i].substr(8 + 20 * slot, 2), numbers[i - 1].substr(2 * slot, 2));
    }
    return records;
  }
};

}  // namespace fiscalon
