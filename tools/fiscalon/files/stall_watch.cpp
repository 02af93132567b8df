#include "tools/fiscalon/files/stall_watch.h"

#include <condition_variable>
#include <iostream>
#include <mutex>
#include <system_error>
#include <utility>

#include "tools/fiscalon/files/file_places.h"
#include "tools/fiscalon/files/interrupt_watch.h"
#include "tools/fiscalon/files/progress_line.h"
#include "tools/reading/visible_text.h"

namespace fiscalon {

/// What a watch waits for.
struct StallWatch::News {
  std::mutex mutex;
  std::condition_variable came;
  bool isOver = false;
  bool hasAnswered = false;

  void Come(bool& news) {
    const std::lock_guard lock(mutex);
    news = true;
    came.notify_all();
  }
};

StallWatch::StallWatch(std::vector<std::string> files, std::chrono::seconds patience)
    : files_(std::move(files)), patience_(patience), news_(std::make_shared<News>()) {
  // Interrupts are for the thread that is watched: what it does while it holds them off, none of these may cut short.
  const HeldOff inherited;
  try {
    watching_ = std::thread([this] { Watch(); });
  } catch (const std::system_error&) {
    // A batch needs no other thread, and goes on without a watch where none can be had.
  }
}

StallWatch::~StallWatch() {
  news_->Come(news_->isOver);
  if (watching_.joinable())
    watching_.join();
}

void StallWatch::Watch() const {
  const auto pause = std::chrono::duration_cast<std::chrono::milliseconds>(patience_) / 4;
  std::unique_lock lock(news_->mutex);
  while (!news_->came.wait_for(lock, pause, [this] { return news_->isOver; })) {
    for (const std::string& file : files_) {
      if (file.empty() || file == "-")
        continue;
      news_->hasAnswered = false;
      // Who looks at a file of a silent folder may never come back, and is left behind then.
      try {
        std::thread([news = news_, file] {
          LookAfresh(file);
          news->Come(news->hasAnswered);
        }).detach();
      } catch (const std::system_error&) {
        break;
      }
      const bool came = news_->came.wait_for(lock, patience_, [this] { return news_->isOver || news_->hasAnswered; });
      if (news_->isOver)
        return;
      if (came)
        continue;
      // The program ends without the progress line's own end.
      WipeProgress();
      std::cerr << "fiscalon: " << VisibleUtf8(file) << ": its folder has not answered for "
                << Counted(static_cast<uint64_t>(patience_.count()), "second")
                << "; see whether its server can be reached, then run this again\n";
      EndAtOnce(ExitStatus::Stalled);
    }
  }
}

}  // namespace fiscalon
