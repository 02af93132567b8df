#pragma once

#include <memory>

class QApplication;

namespace fiscalon::qt {

/// The process's QApplication: the host's, or one made here for a host that has none. One that was made here goes
/// with the last object of this class. Throws `RuntimeError` 5 where the host's application can't show widgets.
class QtApplication {
 public:
  QtApplication();
  ~QtApplication();
  QtApplication(const QtApplication&) = delete;
  QtApplication& operator=(const QtApplication&) = delete;

  /// Whether an application could show anything: there is one, or there is a display. Qt ends the process where
  /// it finds none.
  static bool CanShow();

 private:
  struct Own;
  std::shared_ptr<Own> own_;
};

}  // namespace fiscalon::qt
