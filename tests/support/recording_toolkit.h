#pragma once

#include <deque>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/forms/toolkit.h"

namespace fiscalon {

/// A front end that shows nothing: it keeps what it was asked for, and answers boxes from a list, else by
/// their default button.
class RecordingToolkit : public Toolkit {
 public:
  void ServeModal(Form&) override { throw std::logic_error("no form is expected here"); }

  MessageAnswer ShowMessage(const BoxRequest& box) override {
    boxes.push_back(box);
    if (answers.empty())
      return box.DefaultAnswer();
    const MessageAnswer answer = answers.front();
    answers.pop_front();
    return answer;
  }

  void Beep() override { ++beeps; }
  void OpenHelp(std::string_view file, int32_t context) override { help.emplace_back(file, context); }

  std::deque<MessageAnswer> answers;
  std::vector<BoxRequest> boxes;
  std::vector<std::pair<std::string, int32_t>> help;
  int beeps = 0;
};

}  // namespace fiscalon
