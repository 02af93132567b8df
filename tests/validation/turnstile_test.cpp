#include "validation/turnstile.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <thread>
#include <vector>

namespace fiscalon {
namespace {

TEST(Turnstile, LetsThreadsThroughInTheOrderOfTheirTickets) {
  Turnstile turnstile;
  constexpr uint64_t kTickets = 50;
  std::vector<uint64_t> through;
  const auto pass = [&](uint64_t first) {
    for (uint64_t ticket = first; ticket < kTickets; ticket += 2) {
      EXPECT_TRUE(turnstile.Enter(ticket));
      through.push_back(ticket);
      turnstile.Leave();
    }
  };
  {
    const std::jthread odd(pass, 1);
    pass(0);
  }
  ASSERT_EQ(through.size(), kTickets);
  for (uint64_t ticket = 0; ticket < kTickets; ++ticket) EXPECT_EQ(through[ticket], ticket);
}

TEST(Turnstile, SendsAwayWhoComesWhenItIsClosed) {
  Turnstile turnstile;
  EXPECT_TRUE(turnstile.Enter(0));
  turnstile.Close();
  EXPECT_FALSE(turnstile.Enter(0));
  EXPECT_FALSE(turnstile.Enter(1));
}

/// Whether somebody who waits for a turn that does not come is woken by this.
template <typename Waking>
bool IsWokenBy(const Waking& wake, bool& entered) {
  Turnstile turnstile;
  std::future<bool> waiting = std::async(std::launch::async, [&] { return turnstile.Enter(1); });
  // Long enough that most have gone to sleep; it makes no difference to those who have not.
  for (int moment = 0; moment < 500; ++moment) std::this_thread::yield();
  wake(turnstile);
  const bool woken = waiting.wait_for(std::chrono::seconds(10)) == std::future_status::ready;
  if (!woken) {
    // Nobody is left waiting by a test that fails.
    turnstile.Leave();
    turnstile.Leave();
    turnstile.Close();
  }
  entered = waiting.get();
  return woken;
}

TEST(Turnstile, WakesThoseWhoWait) {
  for (int round = 0; round < 20; ++round) {
    bool entered = false;
    ASSERT_TRUE(IsWokenBy([](Turnstile& turnstile) { turnstile.Leave(); }, entered));
    EXPECT_TRUE(entered);
    ASSERT_TRUE(IsWokenBy([](Turnstile& turnstile) { turnstile.Close(); }, entered));
    EXPECT_FALSE(entered);
  }
}

}  // namespace
}  // namespace fiscalon
