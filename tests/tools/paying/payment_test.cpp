#include "tools/paying/payment.h"

#include <ostream>

#include "tests/support/module_test.h"

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
  for (const char* text : {"abc", "12.5", "1e4", "-", "--5", "+5", "1 000", "1234567890123456"})
    EXPECT_EQ(DollarsOf(text), "") << text;
}

TEST(CentsOf, TakesAPointOrACommaOrNeither) {
  EXPECT_EQ(CentsOf("123.45"), "12345");
  EXPECT_EQ(CentsOf("123,45"), "12345");
  EXPECT_EQ(CentsOf("123.4"), "12340");
  EXPECT_EQ(CentsOf("123."), "12300");
  EXPECT_EQ(CentsOf(" 0123 "), "12300");
}

TEST(CentsOf, IsEmptyForWhatIsNoAmount) {
  for (const char* text :
       {"abc", "1.234", "12.3456", ".5", "$5", "$5.00", "1,234.50", "1 234.50", "1..2", "12345678901234"})
    EXPECT_EQ(CentsOf(text), "") << text;
}

TEST(HostDateOf, PutsTheYearLast) {
  EXPECT_EQ(HostDateOf("2026-06-15"), "06152026");
  EXPECT_EQ(HostDateOf("2024-02-29"), "02292024");
}

TEST(HostDateOf, IsEmptyForWhatIsNoDayOfTheCalendar) {
  for (const char* text : {"", "2026-02-29", "2026-13-01", "2026-00-01", "2026-01-00", "2026-1-01", "20260615",
                           "06/15/2026", "2026-06-1x", "2026-06-15 "})
    EXPECT_EQ(HostDateOf(text), "") << text;
}

TEST(DateText, HasTheYearFirst) {
  EXPECT_EQ(DateText({2026, 6, 5}), "2026-06-05");
}

class PaymentTest : public ModuleTest {};

TEST_F(PaymentTest, OfTheExampleIsDueTomorrow) {
  EXPECT_EQ(ExamplePayment().date, "2026-06-16");
  SetToday({2026, 12, 31});
  EXPECT_EQ(ExamplePayment().date, "2027-01-01");
}

TEST_F(PaymentTest, OfTheExampleHasOneAmount) {
  EXPECT_EQ(CentsOf(ExamplePayment().dollars), ExamplePayment().cents);
}

TEST_F(PaymentTest, SetsEveryProperty) {
  Levyra session;
  Give({.customerNumber = "1234567",
        .billerCode = "001052",
        .billerName = "Summit Levies",
        .cents = "12345",
        .date = "2026-06-15",
        .enteredBy = "Hélène Côté",
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

TEST_F(PaymentTest, HasItsRecordsHandedBackUnlessTheyGoToAFile) {
  Levyra session;
  Give({.destination = Payment::Destination::Collection, .file = "payment.pc4"}, session);
  EXPECT_EQ(session.WriteFile(), 0);
  EXPECT_EQ(session.APHoldFlg(), 0);
}

}  // namespace
}  // namespace fiscalon
