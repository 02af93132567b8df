#pragma once

#include <condition_variable>
#include <cstdint>
#include <mutex>

namespace fiscalon {

/// Lets threads through one at a time, in the order of their tickets 0, 1, 2 and so on.
class Turnstile {
 public:
  /// Waits for the ticket's turn. False where the turnstile was closed meanwhile.
  bool Enter(uint64_t ticket) {
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
  uint64_t turn_ = 0;
  bool closed_ = false;
};

}  // namespace fiscalon
