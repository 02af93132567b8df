#include "tools/desk/payment.h"

#include <gtest/gtest.h>

#include <QDate>
#include <ostream>

namespace fiscalon {
namespace {

struct Amount {
  const char* cents;
  const char* dollars;
};

void PrintTo(const Amount& amount, std::ostream* out) {
  *out << amount.cents << " cents";
}

class DollarsAndCents : public testing::TestWithParam<Amount> {};

TEST_P(DollarsAndCents, AreTheSameAmount) {
  EXPECT_EQ(DollarsOf(GetParam().cents), GetParam().dollars);
  EXPECT_EQ(CentsOf(GetParam().dollars), GetParam().cents);
}

INSTANTIATE_TEST_SUITE_P(Amounts, DollarsAndCents,
                         testing::Values(Amount{"0", "0.00"}, Amount{"5", "0.05"}, Amount{"50", "0.50"},
                                         Amount{"12345", "123.45"}, Amount{"-5", "-0.05"}, Amount{"-12345", "-123.45"},
                                         Amount{"999999999999999", "9999999999999.99"}, Amount{"", ""}));

TEST(DollarsOf, TakesBlanksAndZerosOff) {
  EXPECT_EQ(DollarsOf(" 0012345 "), "123.45");
}

TEST(DollarsOf, IsEmptyForWhatIsNoWholeNumber) {
  for (const char* text : {"abc", "12.5", "1e4", "-", "1 000", "1234567890123456"})
    EXPECT_EQ(DollarsOf(text), "") << text;
}

TEST(CentsOf, TakesAPointOrACommaOrNeither) {
  EXPECT_EQ(CentsOf("123.45"), "12345");
  EXPECT_EQ(CentsOf("123,45"), "12345");
  EXPECT_EQ(CentsOf("123.4"), "12340");
  EXPECT_EQ(CentsOf("123."), "12300");
  EXPECT_EQ(CentsOf("123"), "12300");
}

TEST(CentsOf, IsEmptyForWhatIsNoAmount) {
  for (const char* text : {"abc", "1.234", ".5", "$5", "1,234.50"}) EXPECT_EQ(CentsOf(text), "") << text;
}

TEST(ExamplePayment, IsDueTomorrow) {
  EXPECT_EQ(ExamplePayment().date, QDate::currentDate().addDays(1).toString("MMddyyyy"));
}

TEST(Give, SetsEveryProperty) {
  Levyra session;
  Give({.customerNumber = "1234567",
        .billerCode = "001052",
        .billerName = "Summit Levies",
        .cents = "12345",
        .date = "06152026",
        .enteredBy = QString::fromUtf8("Hélène Côté"),
        .title = "Clerk",
        .onHold = true,
        .sequence = "0001",
        .items = 3,
        .businessName = "Summit Books",
        .destination = Payment::Destination::File,
        .file = "payment.pc4"},
       session);
  EXPECT_EQ(session.ZelmorNumber(), "1234567");
  EXPECT_EQ(session.CompCode(), "001052");
  EXPECT_EQ(session.CompName(), "Summit Levies");
  EXPECT_EQ(session.PaidAmount(), "123.45");
  EXPECT_EQ(session.PaidDate(), "06152026");
  EXPECT_EQ(session.EnterName(), "H\xE9l\xE8ne C\xF4t\xE9");
  EXPECT_EQ(session.EnterTitle(), "Clerk");
  EXPECT_EQ(session.APHoldFlg(), 1);
  EXPECT_EQ(session.SeqNumber(), "0001");
  EXPECT_EQ(session.NumberOfInfoCollect(), "3");
  EXPECT_EQ(session.BusinessName(), "Summit Books");
  EXPECT_EQ(session.GovFilename(), "payment.pc4");
  EXPECT_EQ(session.WriteFile(), -1);
}

TEST(Give, HandsRecordsBackUnlessThereIsAFile) {
  Levyra session;
  Give({.destination = Payment::Destination::Collection, .file = "payment.pc4"}, session);
  EXPECT_EQ(session.WriteFile(), 0);
  EXPECT_EQ(session.APHoldFlg(), 0);
}

}  // namespace
}  // namespace fiscalon
