#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/module_to_change.h"
#include "core/platform/runtime_error.h"
#include "tests/support/random_user.h"
#include "tests/support/screen_test.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon {

/// A payment that random acts are played on: its cents as the host gives them, and what a record's 18 columns hold for
/// them where they can lead to records.
struct RandomPayment {
  std::string cents = {};
  std::string field = {};
};

/// Random acts on a screen, launch after launch, with a look at all records that they lead to.
template <class FormClass>
class RandomActsTest : public ScreenTest {
 protected:
  RandomActsTest() { ModuleToChange().mainPath = folder_.Path(); }

  virtual void ExpectRecordsOf(const std::string& seqNumber, const RandomPayment& payment) = 0;
  /// What else changes from launch to launch.
  virtual void BeforeLaunch(RandomUser& /*random*/) {}
  /// Whether acts may end a launch with that error.
  virtual bool MayFail(const RuntimeError& /*error*/) const { return false; }
  /// What the user does before it does anything, on a form that is long to fill.
  virtual void Begin(FormClass& /*form*/, UserDriver& /*user*/, RandomUser& /*random*/) {}

  void Play(std::string_view code, RandomUser random, const std::vector<RandomPayment>& payments) {
    session.EnterName("Jane Doe");
    session.EnterTitle("Clerk");
    std::string written;
    RandomPayment writtenPayment;
    RandomPayment shown;
    bool failed = false;
    std::string brokenOff;
    int launches = 0;
    int outputs = 0;
    for (int acts = RandomActs(); acts > 0;) {
      const std::string seqNumber = std::to_string(1000 + ++launches % 9000);
      const RandomPayment& payment = random.OneOf(payments);
      session.SeqNumber(seqNumber);
      session.PaidAmount(payment.cents);
      BeforeLaunch(random);
      // A form that an error has left stays loaded: it goes on showing the payment of then.
      if (!failed)
        shown = payment;
      bool result = false;
      failed = false;
      try {
        result = Show<FormClass>(code, [&](FormClass& form, UserDriver& user) {
          Begin(form, user, random);
          for (int patience = 300; patience > 0 && form.IsUp(); --patience, --acts) random.Act(form, user);
        });
      } catch (const RuntimeError& error) {
        ASSERT_TRUE(MayFail(error)) << error.Number() << " in launch " << launches;
        failed = true;
        // An output that fails leaves part of its records, which a later launch may hand over.
        brokenOff = seqNumber;
      }
      TakeBoxes();
      if (!result || (!Records().empty() && Records()[0].substr(3, 4) == brokenOff))
        continue;
      // Closing the window may answer as the launch before did: then these are its records.
      if (!Records().empty() && Records()[0].substr(3, 4) == seqNumber) {
        written = seqNumber;
        writtenPayment = shown;
        ++outputs;
      }
      ASSERT_NO_FATAL_FAILURE(ExpectRecordsOf(written, writtenPayment));
      ASSERT_FALSE(HasFailure()) << "launch " << launches;
    }
    // Otherwise the acts would not come past the checks, and the test would say nothing.
    EXPECT_GT(outputs, RandomActs() / 2000);
  }

 private:
  TemporaryFolder folder_;
};

}  // namespace fiscalon
