#include <gmock/gmock.h>

#include <map>

#include "screens/general/invoice_payments.h"
#include "tests/support/random_acts.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon::invoice_payments_random_test {
namespace {

constexpr size_t kEntryWidth = 45;

/// The cents of an entry, and a look at its shape: a date, a sign and nine digits, a number.
int64_t CentsOf(const std::string& entry) {
  EXPECT_THAT(entry, testing::MatchesRegex("20[0-9]{6}[ -][0-9]{9}.{27}"));
  EXPECT_NE(entry[18], ' ') << "a number begins where its column begins";
  return std::stoll(entry.substr(8, 10));
}

class InvoicePaymentsRandomly : public RandomActsTest<InvoicePayments> {
 protected:
  InvoicePaymentsRandomly() {
    session.WriteFile(kTrue);
    session.GovFilename(folder.Path("payment.pc4"));
  }

  // This form traps no failure, and one that has failed stays loaded: what stands in its store then may be of a payment
  // before, which had another amount.
  bool MayFail(const RuntimeError& error) const override {
    return error.Number() == 5 || error.Number() == 6 || error.Number() == 9 || error.Number() == 13;
  }
  void BeforeLaunch(RandomUser& random) override {
    session.APHoldFlg(static_cast<uint8_t>(random.Below(2)));
    session.ZelmorNumber("4711");
    std::filesystem::remove(folder.Path("payment.pc4"));
    const auto form = TheModule().forms.find("InvoicePayments");
    isFresh_ = form == TheModule().forms.end() || !form->second->IsLoaded();
  }

  void ExpectRecordsOf(const std::string& seqNumber, const RandomPayment& payment) override {
    const std::vector<std::string> records = Records();
    int64_t sum = 0;
    for (const std::string& record : records) {
      ASSERT_EQ(record.substr(0, 8), "PC4" + seqNumber + "R");
      // Only a credit of more digits than its column has makes a record longer.
      if (record.size() != 160) {
        ASSERT_NE(record.find('-'), std::string::npos) << record;
        return;
      }
      sum += CentsOf(record.substr(8, kEntryWidth));
      const std::string second = record.substr(8 + kEntryWidth, kEntryWidth);
      if (second != std::string(kEntryWidth, ' '))
        sum += CentsOf(second);
      else
        EXPECT_EQ(record, records.back());
      EXPECT_EQ(record.substr(98), std::string(62, ' '));
    }
    if (!records.empty() && isFresh_) {
      EXPECT_EQ(std::to_string(sum), payment.field);
    }
  }

  const TemporaryFolder folder;
  bool isFresh_ = true;
};

TEST_F(InvoicePaymentsRandomly, NoActsLeadToACrashOrABadRecord) {
  const std::vector<RandomPayment> payments = {
      {"12345", "12345"}, {"5", "5"}, {"0", "0"}, {"-12345", "-12345"}, {"100000", "100000"}};
  // Whole invoices among them: by single keys hardly a list would come to its sum.
  const RandomUser random(
      20260615, {"20260601", "20240229", "20281231", "2026060", "20260431", "INV-100", "Freight, May", "12345",
                 "123.45", "5", ".05", "-123.45", "1000.00", "20260601\rINV-1\r12345\r", "20260602\rINV-2\r5\r",
                 "20260603\rINV-3\r100.00\r", "20260604\rCREDIT\r-5\r", "20260605\rINV-4\r\r", "20260606\rINV-5\r\r"});
  Play("08", random, payments);
}

}  // namespace
}  // namespace fiscalon::invoice_payments_random_test
