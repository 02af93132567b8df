#include <gmock/gmock.h>

#include <cstdint>

#include "screens/federal/gst34.h"
#include "tests/screens/federal/gst34_entries.h"
#include "tests/support/random_acts.h"
#include "tests/support/ruled_record.h"

namespace fiscalon::gst34_records_test {
namespace {

using testing::ElementsAre;

// clang-format off
const std::string kRecordT =
    // head  |start   |end     |due     |filler1 |contact name                  |contact title       |filler2   |
    "PC40001T2026040120260630                Jane Doe                      Clerk                         ";
const std::string kRecordF1 =
    // head  |sales (101)         |total tax (105)     |instalments (110)   |credits (108)       |
    "PC40001F01000000000005000000020000000000000250000300000000000000300004000000000000010000";
const std::string kRecordF2 =
    // head  |rebates (111)       |net tax (109)       |property (205)      |refund (114)        |
    "PC40001F05000000000000000505060000000000000150000700000000000000085008000000000000000000";
const std::string kRecordF3 =
    // head  |self-assessed (405) |payment (115)       |
    "PC40001F0900000000000000000010000000000000012345";
// clang-format on

class Gst34Records : public Gst34Payment {
 protected:
  std::vector<std::string> Expected() const override { return {kRecordT, kRecordF1, kRecordF2, kRecordF3}; }
};

const bool kTestsAdded = AddRecordsTests<Gst34Records>("Gst34Records");

TEST_F(Gst34Records, AreMadeOfTrimmedEntriesInCents) {
  EXPECT_TRUE(Show<GOVGST34>("05", [this](GOVGST34& form, UserDriver& user) {
    FillIn(form, user);
    user.PressMouse(form.Command1);
    form.SalesRevenue.Text(" 50000 ");
    form.InstalmentPayment.Text(" 3000 ");
    form.Rebates.Text(" 505 ");
    form.RealProperty.Text(" 8.5 ");
    form.ImportedTax.Text("  ");
    form.TotalGST.Text(" 25000 ");
    form.TotalITCs.Text(" 100. ");
    user.Click(form.Command1);
  }));
  EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), Ruled(kRecordF1), Ruled(kRecordF2), Ruled(kRecordF3)));
}

TEST_F(Gst34Records, HoldANegativeNetTaxWithItsSignBehind) {
  EXPECT_TRUE(Show<GOVGST34>("05", [this](GOVGST34& form, UserDriver& user) {
    FillIn(form, user);
    user.PressMouse(form.Command1);
    SetNetTax(form, "50.00", "60.00");
    form.ImportedTax.Text("133.45");
    user.Click(form.Command1);
  }));
  ASSERT_EQ(Records().size(), 4U);
  EXPECT_EQ(Records()[2],
            // head  |rebates (111)       |net tax (109)       |property (205)      |refund (114)        |
            Ruled("PC40001F050000000000000000000600000000000001000-0700000000000000000008000000000000000000"));
  EXPECT_EQ(Records()[3],
            // head  |self-assessed (405) |payment (115)       |
            Ruled("PC40001F0900000000000001334510000000000000012345"));
}

TEST_F(Gst34Records, RunOneColumnOverForARefund) {
  session.PaidAmount("0");
  EXPECT_TRUE(Show<GOVGST34>("05", [this](GOVGST34& form, UserDriver& user) {
    FillIn(form, user);
    user.PressMouse(form.Command1);
    SetNetTax(form, "0.00", "2.00");
    user.Click(form.Command1);
  }));
  ASSERT_EQ(Records().size(), 4U);
  // The sign stands in front of 18 digits, and all behind it one column to the right.
  EXPECT_EQ(Records()[2],
            // head  |rebates (111)       |net tax (109)       |property (205)      |refund (114)         |
            Ruled("PC40001F050000000000000000000600000000000000200-0700000000000000000008-000000000000000200") + ' ');
  EXPECT_EQ(Records()[2].size(), 161U);
  EXPECT_EQ(Records()[3], Ruled("PC40001F0900000000000000000010000000000000000000"));
}

/// The value of a slot, in cents. A minus sign may stand on either side.
int64_t CentsIn(std::string value) {
  if (value.ends_with('-'))
    value = '-' + value.substr(0, value.size() - 1);
  EXPECT_EQ(value.find_first_not_of("0123456789", 1), std::string::npos) << value;
  return std::stoll(value);
}

class Gst34Randomly : public RandomActsTest<GOVGST34> {
 protected:
  void ExpectRecordsOf(const std::string& seqNumber, const RandomPayment& payment) override {
    const std::vector<std::string> records = Records();
    ASSERT_EQ(records.size(), 4U);
    const std::string head = "PC4" + seqNumber;
    const std::string start = records[0].substr(8, 8), end = records[0].substr(16, 8);
    EXPECT_EQ(records[0],
              Ruled(head + "T" + start + end + std::string(16, ' ') + "Jane Doe" + std::string(22, ' ') + "Clerk"));
    EXPECT_TRUE("20240101" <= start && start < end && end <= "20281231") << start << end;
    const auto slot = [&](size_t record, size_t i) { return records[record].substr(10 + 20 * i, 18); };
    const std::string refund = records[2].substr(70, records[2].size() - 160 + 18);
    EXPECT_EQ(records[1], Ruled(head + "F01" + slot(1, 0) + "02" + slot(1, 1) + "03" + slot(1, 2) + "04" + slot(1, 3)));
    EXPECT_EQ(records[2],
              head + "F05" + slot(2, 0) + "06" + slot(2, 1) + "07" + slot(2, 2) + "08" + refund + std::string(72, ' '));
    EXPECT_EQ(records[3], Ruled(head + "F09" + slot(3, 0) + "10" + slot(3, 1)));

    EXPECT_TRUE(slot(1, 0).ends_with("00")) << slot(1, 0);
    const int64_t netTax = CentsIn(slot(1, 1)) - CentsIn(slot(1, 3));
    EXPECT_EQ(CentsIn(slot(2, 1)), netTax);
    const int64_t balance =
        netTax - CentsIn(slot(1, 2)) - CentsIn(slot(2, 0)) + CentsIn(slot(2, 2)) + CentsIn(slot(3, 0));
    EXPECT_TRUE(balance >= 200 || balance <= -200) << balance;
    EXPECT_EQ(CentsIn(slot(3, 1)), balance > 0 ? balance : 0);
    EXPECT_EQ(slot(3, 1), payment.field);
    EXPECT_EQ(CentsIn(refund), balance < 0 ? balance : 0);
    EXPECT_EQ(refund.size(), balance < 0 ? 19U : 18U);
  }
};

TEST_F(Gst34Randomly, NoActsLeadToACrashOrABadRecord) {
  const RandomPayment due = {"12345", "000000000000012345"}, nothing = {"0", "000000000000000000"};
  const std::vector<RandomPayment> payments = {due, due, nothing, nothing, nothing, nothing, {"1E30", "no record"}};
  // 9E14 is money, twice as much is not: what adds them up fails.
  const RandomUser random(
      20260615, {"20260401", "20260401", "20260401", "20260630", "20260630", "20260630", "20250101", "20260431",
                 "123.45", "123.45", "123.45", "12345", "0", "0", "0", "0.00", "8.505", "-5", "9E14"});
  Play("05", random, payments);
}

}  // namespace
}  // namespace fiscalon::gst34_records_test
