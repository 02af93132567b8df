// What the interface answers a host whose routines fail, call back in, and come from another thread or another process.

#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <future>
#include <string>
#include <thread>

#include "tests/bindings/c/host.h"

namespace fiscalon {
namespace {

using Misuse = HostTest;

/// Fills in screen "15" and confirms.
int FillInAndConfirm(fiscalon_form* form) {
  return fiscalon_form_type(form, "20261212345") == 0 ? fiscalon_form_click(form, "cmdOK") : -1;
}

int Show(fiscalon_payment* payment) {
  int32_t chosen = 7;
  const int answer = fiscalon_payment_show(payment, "15", &chosen);
  EXPECT_TRUE(answer == 0 || chosen == 0) << "a show that fails has no answer";
  return answer;
}

class ShownMisuse : public HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    ASSERT_EQ(fiscalon_payment_create(payment_.Place()), 0);
    ASSERT_EQ(fiscalon_payment_set_paid_amount(payment_, "12345"), 0);
    ASSERT_EQ(user_.Install(), 0);
  }

  /// The library goes on as if nothing had been.
  void ExpectGoesOn() {
    PlayedUser user;
    user.onForm = FillInAndConfirm;
    ASSERT_EQ(fiscalon_reset(), 0) << LastError().description;
    ASSERT_EQ(user.Install(), 0);
    int32_t chosen = 0;
    EXPECT_EQ(fiscalon_payment_show(payment_, "15", &chosen), 0) << LastError().description;
    EXPECT_EQ(chosen, 1);
    ASSERT_EQ(fiscalon_use_front_end(nullptr), 0);
  }

  PlayedUser user_;
  HeldPayment payment_;
};

TEST_F(ShownMisuse, ACallbackThatFailsEndsTheShow) {
  user_.onForm = [](fiscalon_form*) { return 42; };
  ExpectFailure(Show(payment_), FISCALON_ERROR_CALLBACK, "on_form of the host answered 42");
  EXPECT_STREQ(LastError().source, "Fiscalon.ShowLevyraScreen");
  ExpectGoesOn();
}

TEST_F(ShownMisuse, ACallbackThatFailsTellsWhatItWasRefused) {
  user_.onForm = [](fiscalon_form* form) { return fiscalon_form_click(form, "cmdNo"); };
  ExpectFailure(Show(payment_), FISCALON_ERROR_CALLBACK,
                "on_form of the host answered -1 after error 5: \"frmDueDateAmount\" has no control \"cmdNo\".");
  ExpectGoesOn();
}

TEST_F(ShownMisuse, ABoxThatFailsEndsTheShow) {
  user_.onForm = [](fiscalon_form* form) { return fiscalon_form_click(form, "cmdOK"); };
  user_.onBox = [](const fiscalon_box&, int32_t&) { return 1; };
  ExpectFailure(Show(payment_), FISCALON_ERROR_CALLBACK, "on_box of the host answered 1");
  ExpectGoesOn();
}

TEST_F(ShownMisuse, AnAnswerThatABoxDoesNotOfferEndsTheShow) {
  user_.onForm = [](fiscalon_form* form) { return fiscalon_form_click(form, "cmdOK"); };
  for (const int32_t wrong : {-1, 1, 4}) {
    user_.onBox = [wrong](const fiscalon_box&, int32_t& answer) {
      answer = wrong;
      return 0;
    };
    ExpectFailure(Show(payment_), FISCALON_ERROR_CALLBACK, "gave the answer " + std::to_string(wrong));
  }
  ExpectGoesOn();
}

TEST_F(ShownMisuse, AHandlerThatFailsEndsTheShow) {
  user_.onForm = FillInAndConfirm;
  user_.onHandler = [](const std::string& handler) { return handler == "cmdOK_Click" ? 5 : 0; };
  ExpectFailure(Show(payment_), FISCALON_ERROR_CALLBACK, "on_handler of the host answered 5");
  ExpectGoesOn();
}

TEST_F(ShownMisuse, AFormIsTheRoutinesAlone) {
  fiscalon_form* kept = nullptr;
  user_.onForm = [&](fiscalon_form* form) {
    kept = form;
    return FillInAndConfirm(form);
  };
  EXPECT_EQ(Show(payment_), 0);
  ExpectFailure(fiscalon_form_click(kept, "cmdOK"), FISCALON_ERROR_NO_HANDLE);
  ExpectFailure(fiscalon_form_click(nullptr, "cmdOK"), FISCALON_ERROR_OBJECT_NOT_SET);
}

TEST_F(ShownMisuse, WhatAScreenStandsOnStays) {
  int answers = 0;
  user_.onForm = [&](fiscalon_form* form) {
    for (const int answer :
         {fiscalon_reset(), fiscalon_use_front_end(nullptr), fiscalon_use_front_end("scripted"), user_.Install()}) {
      ExpectFailure(answer, FISCALON_ERROR_BUSY);
      ++answers;
    }
    return FillInAndConfirm(form);
  };
  EXPECT_EQ(Show(payment_), 0);
  EXPECT_EQ(answers, 4);
}

TEST_F(ShownMisuse, ACallbackMayUseTheLibrary) {
  HeldPayment other;
  int inner = 0;
  user_.onForm = [&](fiscalon_form* form) {
    const char* name = nullptr;
    EXPECT_EQ(fiscalon_form_get_name(form, &name), 0);
    if (std::string(name) == "frmDonation") {
      ++inner;
      return 0;
    }
    // The same form a second time; another payment; another screen within.
    ExpectFailure(Show(payment_), FISCALON_ERROR_ALREADY_SHOWN);
    EXPECT_EQ(fiscalon_payment_create(other.Place()), 0);
    int32_t chosen = 7;
    EXPECT_EQ(fiscalon_payment_show(other, "10", &chosen), 0) << LastError().description;
    EXPECT_EQ(chosen, 0);
    return FillInAndConfirm(form);
  };
  EXPECT_EQ(Show(payment_), 0) << LastError().description;
  EXPECT_EQ(inner, 1);
}

TEST_F(ShownMisuse, APaymentMayBeDestroyedWhileItsScreenIsOpen) {
  fiscalon_payment* payment = nullptr;
  ASSERT_EQ(fiscalon_payment_create(&payment), 0);
  user_.onForm = [&](fiscalon_form* form) {
    EXPECT_EQ(fiscalon_payment_destroy(&payment), 0);
    return fiscalon_form_click(form, "cmdCancel");
  };
  EXPECT_EQ(Show(payment), 0);
  EXPECT_EQ(payment, nullptr);
}

/// What a routine answers on another thread.
template <typename Routine>
void OnAnotherThread(Routine&& routine) {
  std::thread(std::forward<Routine>(routine)).join();
}

TEST_F(ShownMisuse, AnotherThreadCallsInVainWhileAScreenIsOpen) {
  user_.onForm = [&](fiscalon_form* form) {
    OnAnotherThread([&] {
      const char* text = nullptr;
      ExpectFailure(fiscalon_payment_get_comp_name(payment_, &text), FISCALON_ERROR_THREAD, "A screen is open");
      ExpectFailure(fiscalon_form_click(form, "cmdOK"), FISCALON_ERROR_THREAD);
      ExpectFailure(Show(payment_), FISCALON_ERROR_THREAD);
      fiscalon_batch batch = {};
      batch.size = sizeof batch;
      ExpectFailure(fiscalon_validate_batch(&batch, nullptr), FISCALON_ERROR_THREAD);
    });
    return FillInAndConfirm(form);
  };
  EXPECT_EQ(Show(payment_), 0) << LastError().description;
}

TEST_F(ShownMisuse, GarbageMayBeCollectedOnAnyThread) {
  fiscalon_records* records = nullptr;
  ASSERT_EQ(fiscalon_records_create(&records), 0);
  user_.onForm = [&](fiscalon_form* form) {
    OnAnotherThread([&] { EXPECT_EQ(fiscalon_records_destroy(&records), 0); });
    return FillInAndConfirm(form);
  };
  EXPECT_EQ(Show(payment_), 0);
  EXPECT_EQ(records, nullptr);
}

TEST_F(ShownMisuse, TheThreadOfTheFrontEndShowsScreens) {
  OnAnotherThread([&] {
    ExpectFailure(Show(payment_), FISCALON_ERROR_THREAD, "The front end was installed on another thread");
    ExpectFailure(fiscalon_use_front_end("scripted"), FISCALON_ERROR_THREAD);
    ExpectFailure(fiscalon_reset(), FISCALON_ERROR_THREAD);
    // What shows nothing does not matter.
    EXPECT_EQ(fiscalon_payment_set_comp_name(payment_, "x"), 0);
  });
  user_.onForm = FillInAndConfirm;
  EXPECT_EQ(Show(payment_), 0);
}

TEST_F(Misuse, EachThreadHasALastErrorOfItsOwn) {
  ExpectFailure(fiscalon_payment_create(nullptr), FISCALON_ERROR_NULL_POINTER);
  OnAnotherThread([] {
    EXPECT_EQ(LastError().number, 0);
    EXPECT_STREQ(LastError().description, "");
    ExpectFailure(fiscalon_check_is_info_valid(nullptr, nullptr), FISCALON_ERROR_NULL_POINTER);
    ExpectFailure(fiscalon_use_locale("xx"), 5);
  });
  EXPECT_EQ(LastError().number, FISCALON_ERROR_NULL_POINTER);
}

TEST_F(Misuse, CallsOfManyThreadsTakeTurns) {
  constexpr int kThreads = 4, kCalls = 500;
  HeldRecords records;
  ASSERT_EQ(fiscalon_records_create(records.Place()), 0);
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i)
    threads.emplace_back([&] {
      for (int call = 0; call < kCalls; ++call) {
        fiscalon_record* added = nullptr;
        EXPECT_EQ(fiscalon_records_add(records, nullptr, nullptr, "x", nullptr, &added), 0);
        EXPECT_EQ(fiscalon_record_destroy(&added), 0);
      }
    });
  for (std::thread& thread : threads) thread.join();
  int32_t count = 0;
  EXPECT_EQ(fiscalon_records_count(records, &count), 0);
  EXPECT_EQ(count, kThreads * kCalls);
}

/// A batch of one good payment, whose verdict is told to a routine.
struct OneBatch {
  std::string payments = "seq,screen,biller,amount\n0001,03,,12345\n";
  std::string records =
      Line("PC40001T                                Jane Doe") +
      Line("PC40001F010000000000000123450220260531          0300000000000050000004000000000000000012");
  std::function<int(const fiscalon_verdict&)> onVerdict = {};

  static std::string Line(std::string text) {
    text.resize(160, ' ');
    return "\"" + text + "\"\r\n";
  }

  int Judge(fiscalon_batch_counts* counts = nullptr) {
    fiscalon_batch batch = {};
    batch.size = sizeof batch;
    batch.payments_bytes = payments.data();
    batch.payments_size = payments.size();
    batch.records_bytes = records.data();
    batch.records_size = records.size();
    batch.jobs = 1;
    batch.wants_valid = 1;
    batch.context = this;
    batch.on_verdicts = [](void* context, const fiscalon_verdict* verdicts, size_t) {
      const auto& self = *static_cast<OneBatch*>(context);
      return self.onVerdict ? self.onVerdict(*verdicts) : 0;
    };
    return fiscalon_validate_batch(&batch, counts);
  }
};

TEST_F(ShownMisuse, WhatABatchIsJudgedByStays) {
  OneBatch batch;
  int verdicts = 0;
  batch.onVerdict = [&](const fiscalon_verdict& verdict) {
    ++verdicts;
    EXPECT_EQ(verdict.valid, 1) << verdict.reason.data;
    fiscalon_payment* another = nullptr;
    ExpectFailure(fiscalon_payment_create(&another), FISCALON_ERROR_BUSY, "A batch is being judged");
    ExpectFailure(fiscalon_use_locale("fr-CA"), FISCALON_ERROR_BUSY);
    ExpectFailure(fiscalon_use_fixed_clock(2026, 1, 1, 0, 0, 0), FISCALON_ERROR_BUSY);
    ExpectFailure(fiscalon_reset(), FISCALON_ERROR_BUSY);
    ExpectFailure(Show(payment_), FISCALON_ERROR_BUSY);
    // Everything else may be done, another batch too.
    EXPECT_EQ(fiscalon_payment_set_comp_name(payment_, "x"), 0);
    fiscalon_batch_counts counts = {};
    counts.size = sizeof counts;
    EXPECT_EQ(OneBatch().Judge(&counts), 0);
    EXPECT_EQ(counts.payments, 1u);
    return 0;
  };
  EXPECT_EQ(batch.Judge(), 0) << LastError().description;
  EXPECT_EQ(verdicts, 1);
  EXPECT_EQ(fiscalon_use_locale("en-CA"), 0);
}

/// What a child of this process ends with.
int EndOf(pid_t child) {
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 100 + status;
}

/// 0 where the routine found all as it should be.
int InAChild(const std::function<bool()>& routine) {
  const pid_t child = fork();
  if (child == 0)
    _exit(routine() ? 0 : 1);
  return EndOf(child);
}

TEST_F(ShownMisuse, AChildGoesOnWithAllThatNeedsNothingOfTheSystem) {
  user_.onForm = FillInAndConfirm;
  EXPECT_EQ(InAChild([&] {
              fiscalon_batch_counts counts = {};
              counts.size = sizeof counts;
              return Show(payment_) == 0 && OneBatch().Judge(&counts) == 0 && counts.payments == 1 &&
                     fiscalon_reset() == 0;
            }),
            0);
  EXPECT_EQ(Show(payment_), 0);
}

TEST_F(Misuse, AChildOfABatchsRoutineHasABatchOfItsOwn) {
  const auto judgesAnother = [] {
    OneBatch another;
    another.onVerdict = [](const fiscalon_verdict&) {
      return fiscalon_use_locale("fr-CA") == -1 && LastError().number == FISCALON_ERROR_BUSY ? 0 : 1;
    };
    return another.Judge() == 0 && fiscalon_use_locale("fr-CA") == 0;
  };
  OneBatch batch;
  pid_t child = 0;
  batch.onVerdict = [&](const fiscalon_verdict&) {
    child = fork();
    return 0;
  };
  const int answer = batch.Judge();
  if (child == 0)
    _exit(answer == 0 && judgesAnother() ? 0 : 1);
  EXPECT_EQ(answer, 0) << LastError().description;
  EXPECT_EQ(EndOf(child), 0);
  EXPECT_EQ(fiscalon_use_locale("en-CA"), 0);
}

TEST_F(ShownMisuse, AChildOfAThreadThatWasNotInTheLibraryCannotGoOn) {
  user_.onForm = [&](fiscalon_form* form) {
    OnAnotherThread([&] {
      EXPECT_EQ(InAChild([&] {
                  const char* text = nullptr;
                  return fiscalon_payment_get_comp_name(payment_, &text) == -1 &&
                         LastError().number == FISCALON_ERROR_FORKED;
                }),
                0);
    });
    return FillInAndConfirm(form);
  };
  EXPECT_EQ(Show(payment_), 0);
}

TEST_F(Misuse, AForkWhileOthersCallLeavesNoLockBehind) {
  std::atomic<bool> over = false;
  std::thread other([&] {
    while (!over) fiscalon_use_locale("en-CA");
  });
  for (int i = 0; i < 20; ++i)
    EXPECT_EQ(InAChild([] {
                const int answer = fiscalon_use_locale("en-CA");
                return answer == 0 || LastError().number == FISCALON_ERROR_FORKED;
              }),
              0);
  over = true;
  other.join();
}

}  // namespace
}  // namespace fiscalon
