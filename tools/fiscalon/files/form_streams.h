#pragma once

#include <array>

namespace fiscalon {

/// Keeps standard input and output for what programs read and write, while a form is shown by a program that another
/// one talks to: forms on a terminal have the one that the process is started from, and what a front end, its plug-ins
/// or a viewer of help print goes to standard error. Nothing keeps the other program waiting for the end of an answer.
class FormStreams {
 public:
  FormStreams() = default;
  ~FormStreams() { GiveBack(); }
  FormStreams(const FormStreams&) = delete;
  FormStreams& operator=(const FormStreams&) = delete;

  /// From now on the form has them.
  void Take();
  /// They are what they were.
  void GiveBack();

 private:
  std::array<int, 2> kept_ = {-1, -1};
};

}  // namespace fiscalon
