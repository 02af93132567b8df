#include "core/screen_contract.h"

#include "core/module_state.h"
#include "core/record_composer.h"

namespace fiscalon {
namespace {

// As many characters as are there: a date that is too short shows what it has.
std::string_view Middle(std::string_view text, size_t from, size_t length) {
  return text.size() < from ? std::string_view() : text.substr(from - 1, length);
}

}  // namespace

std::string Screen::ShownPaidDate() const {
  const std::string_view date = PaidDate();
  std::string shown(Middle(date, 3, 2));
  shown.append("/").append(Middle(date, 1, 2)).append("/").append(Middle(date, 5, 4));
  return shown;
}

bool Screen::Refuse(Control& control, std::string_view message) {
  ShowMessage(message, MessageStyle::Critical);
  control.SetFocus();
  return false;
}

std::shared_ptr<PC4s> Screen::PC4Records() {
  Accessed("Get", "PC4Records");
  if (!pc4Records_)
    pc4Records_ = std::make_shared<PC4s>();
  return pc4Records_;
}

void Screen::BeginRecords() {
  output_.reset();
  if (writeFile_ == kTrue) {
    Files& files = *TheModule().files;
    if (files.Exists(govFilename_))
      files.Delete(govFilename_);
    output_ = files.Open(govFilename_, OpenMode::Output);
    return;
  }
  if (!pc4Records_)
    pc4Records_ = std::make_shared<PC4s>();
  pc4Records_->Clear();
}

void Screen::SendRecord(const std::string& record) {
  if (output_)
    output_->Print(QuotedLine(record));
  else
    pc4Records_->Add("", "", record);
}

void Screen::EndRecords() {
  if (output_)
    output_->Close();
  output_.reset();
}

}  // namespace fiscalon
