#include "validation/clock_watch.h"

#include <memory>
#include <string>

#include "tests/support/module_test.h"
#include "validation/batch.h"

namespace fiscalon {
namespace {

/// A clock that a test sets.
class SettableClock : public FixedClock {
 public:
  SettableClock() : FixedClock({.date = {2026, 6, 15}}) {}

  std::optional<int64_t> Seconds() const override { return seconds; }

  int64_t seconds = 1'781'524'800;
};

/// Sets the clock as soon as it is told of a payment.
class Setting : public BatchListener {
 public:
  Setting(SettableClock& clock, int64_t by) : clock_(clock), by_(by) {}

  bool WantsValidPayments() const override { return true; }
  void OnPayment(const PaymentVerdict&) override { clock_.seconds += by_; }

 private:
  SettableClock& clock_;
  int64_t by_;
};

TEST(SetBackBy, IsWhatAClockHasLostButForWhatOneMayLoseThatIsKeptRight) {
  const struct {
    int64_t shown, passed;
    std::optional<int64_t> by;
  } rows[] = {
      {300, 600, 300},
      {598, 600, 2},
      {599, 600, std::nullopt},
      {998, 1000, std::nullopt},
      {997, 1000, 3},
      {3595, 3600, 5},
      {3596, 3600, std::nullopt},
      {-1, 0, 1},
      {86'400, 0, std::nullopt},
  };
  for (const auto& [shown, passed, by] : rows) EXPECT_EQ(SetBackBy(shown, passed), by) << shown << " of " << passed;
}

class ClockWatchTest : public ModuleTest {
 protected:
  ClockWatchTest() { ModuleToChange().clock = clock; }

  /// What is said of a clock that is set by so many seconds in the middle.
  std::string SetBy(int64_t seconds) const {
    const ClockWatch watch;
    clock->seconds += seconds;
    try {
      watch.RefuseSettingBack();
    } catch (const BatchError& error) {
      return error.what();
    }
    return "";
  }

  std::shared_ptr<SettableClock> clock = std::make_shared<SettableClock>();
};

TEST_F(ClockWatchTest, RefusesAClockThatWasSetBack) {
  EXPECT_EQ(
      SetBy(-3600),
      "the clock: it was set back by 3600 seconds while the batch was judged, and may have had the wrong day; judge "
      "it again, or as of a day that is named");
  EXPECT_TRUE(SetBy(-1).starts_with("the clock: it was set back by 1 second while"));
}

TEST_F(ClockWatchTest, TakesAClockThatGoesOn) {
  EXPECT_EQ(SetBy(0), "");
  EXPECT_EQ(SetBy(1), "");
  // A machine that has slept.
  EXPECT_EQ(SetBy(86'400), "");
}

TEST_F(ClockWatchTest, TakesAClockThatStandsStill) {
  SetToday({2026, 6, 15});
  const ClockWatch watch;
  SetToday({2026, 6, 14});
  EXPECT_NO_THROW(watch.RefuseSettingBack());
}

TEST_F(ClockWatchTest, TakesAClockWhoseSecondsAreNotKnownAtOneEnd) {
  const ClockWatch running;
  SetToday({2026, 6, 15});
  EXPECT_NO_THROW(running.RefuseSettingBack());
  const ClockWatch standing;
  clock->seconds = -1;
  ModuleToChange().clock = clock;
  EXPECT_NO_THROW(standing.RefuseSettingBack());
}

TEST_F(ClockWatchTest, TheSystemsClockRuns) {
  const SystemClock system;
  const int64_t before = std::time(nullptr);
  const std::optional<int64_t> told = system.Seconds();
  EXPECT_TRUE(told >= before && told <= std::time(nullptr));
}

TEST_F(ClockWatchTest, NoVerdictOfABatchCountsWhoseClockWasSetBack) {
  const std::string list = "seq,screen,biller,amount\n0001,15,,1\n";
  const std::string record = "\"PC40001T" + std::string(152, ' ') + "\"\r\n";
  const auto judge = [&](int64_t by) {
    const auto payments = ByteSource::Of(list, "batch.csv");
    const auto records = ByteSource::Of(record, "batch.pc4");
    Setting listener(*clock, by);
    return ValidateBatch(*payments, *records, 1, listener).payments;
  };
  EXPECT_EQ(judge(0), 1u);
  EXPECT_THROW(judge(-60), BatchError);
}

}  // namespace
}  // namespace fiscalon
