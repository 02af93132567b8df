#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace fiscalon {

/// Watches, while it lives, whether the folders of files answer. A network folder whose server is silent holds whoever
/// reads a mapped file of it, for as long as it is silent and so that no interrupt gets through. Where a file can't
/// even be looked at for that long, this says so and ends the program, with status `Stalled`.
class StallWatch {
 public:
  /// "-" and empty names are no files.
  StallWatch(std::vector<std::string> files, std::chrono::seconds patience);
  ~StallWatch();
  StallWatch(const StallWatch&) = delete;
  StallWatch& operator=(const StallWatch&) = delete;

 private:
  struct News;

  void Watch() const;

  const std::vector<std::string> files_;
  const std::chrono::seconds patience_;
  /// Also of those who never come back from a look.
  const std::shared_ptr<News> news_;
  std::thread watching_;
};

}  // namespace fiscalon
