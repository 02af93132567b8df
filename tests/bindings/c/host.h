#pragma once

#include <fiscalon/c.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

/// A host in C++ that has the C interface alone.
namespace fiscalon {

inline fiscalon_error LastError() {
  fiscalon_error error = {};
  error.size = sizeof error;
  EXPECT_EQ(fiscalon_last_error(&error), 0);
  return error;
}

/// The call fails with that number; what it says holds that text.
inline void ExpectFailure(int answer, int32_t number, const std::string& said = {}) {
  EXPECT_EQ(answer, -1);
  EXPECT_EQ(LastError().number, number) << LastError().description;
  EXPECT_NE(std::string(LastError().description).find(said), std::string::npos) << LastError().description;
}

/// A handle that goes with its variable.
template <typename Type, int (*destroy)(Type**)>
class Held {
 public:
  Held() = default;
  ~Held() { EXPECT_EQ(destroy(&handle_), 0) << LastError().description; }
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;

  Type** Place() { return &handle_; }
  operator Type*() const { return handle_; }

 private:
  Type* handle_ = nullptr;
};
using HeldPayment = Held<fiscalon_payment, fiscalon_payment_destroy>;
using HeldRecords = Held<fiscalon_records, fiscalon_records_destroy>;
using HeldRecord = Held<fiscalon_record, fiscalon_record_destroy>;
using HeldCheck = Held<fiscalon_check, fiscalon_check_destroy>;
using HeldJudge = Held<fiscalon_judge, fiscalon_judge_destroy>;

/// A user that a test plays. Each routine answers what the host's routine is to answer.
struct PlayedUser {
  std::function<int(fiscalon_form*)> onForm = {};
  std::function<int(const fiscalon_box&, int32_t&)> onBox = {};
  std::function<int()> onBeep = {};
  std::function<int(const std::string&)> onHandler = {};

  int Install() {
    fiscalon_scripted_user user = {};
    user.size = sizeof user;
    user.context = this;
    user.on_form = [](void* context, fiscalon_form* form) {
      const auto& self = *static_cast<PlayedUser*>(context);
      return self.onForm ? self.onForm(form) : 0;
    };
    user.on_box = [](void* context, const fiscalon_box* box, int32_t* answer) {
      const auto& self = *static_cast<PlayedUser*>(context);
      return self.onBox ? self.onBox(*box, *answer) : 0;
    };
    user.on_beep = [](void* context) {
      const auto& self = *static_cast<PlayedUser*>(context);
      return self.onBeep ? self.onBeep() : 0;
    };
    user.on_handler = [](void* context, const char* handler) {
      const auto& self = *static_cast<PlayedUser*>(context);
      return self.onHandler ? self.onHandler(handler) : 0;
    };
    return fiscalon_use_scripted_user(&user);
  }
};

/// Begins and ends with a library that has just been loaded, and with June 15, 2026.
class HostTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(fiscalon_reset(), 0) << LastError().description;
    ASSERT_EQ(fiscalon_use_locale("en-CA"), 0);
    ASSERT_EQ(fiscalon_use_fixed_clock(2026, 6, 15, 13, 5, 9), 0);
  }
  void TearDown() override { EXPECT_EQ(fiscalon_reset(), 0) << LastError().description; }
};

}  // namespace fiscalon
