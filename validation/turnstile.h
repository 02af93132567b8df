#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>

namespace fiscalon {

/// Lets threads through one at a time, in the order of their tickets 0, 1, 2 and so on.
class Turnstile {
 public:
  /// Waits for the ticket's turn. False where the turnstile was closed meanwhile.
  bool Enter(uint64_t ticket) {
    // Turns are short and come one after the other: to be woken would take longer than most waits.
    constexpr int kGlances = 64;
    for (int glance = 0; glance < kGlances && turn_ != ticket && !closed_; ++glance) std::this_thread::yield();
    std::unique_lock lock(mutex_);
    moved_.wait(lock, [&] { return closed_ || turn_ == ticket; });
    return !closed_;
  }

  /// Makes it the next ticket's turn.
  void Leave() {
    {
      const std::lock_guard lock(mutex_);
      ++turn_;
    }
    moved_.notify_all();
  }

  /// Sends all away, those who wait and those who come.
  void Close() {
    {
      const std::lock_guard lock(mutex_);
      closed_ = true;
    }
    moved_.notify_all();
  }

 private:
  std::mutex mutex_;
  std::condition_variable moved_;
  std::atomic<uint64_t> turn_ = 0;
  std::atomic<bool> closed_ = false;
};

}  // namespace fiscalon
