#include "core/screen.h"

#include "core/module_state.h"

namespace fiscalon {
namespace {

// As many characters as are there: a date that is too short shows what it has.
std::string_view Middle(std::string_view text, size_t from, size_t length) {
  return text.size() < from ? std::string_view() : text.substr(from - 1, length);
}

}  // namespace

std::string GivenPayment::ShownDate() const {
  std::string shown(Middle(paidDate, 3, 2));
  shown.append("/").append(Middle(paidDate, 1, 2)).append("/").append(Middle(paidDate, 5, 4));
  return shown;
}

void Screen::Accepted() {
  Chosen(kTrue);
  Hide();
}

void Screen::Cancelled() {
  Chosen(kFalse);
  Hide();
}

bool Screen::CancelOnClosing(CloseReason reason) {
  const bool cancels =
      reason == CloseReason::CloseBox || reason == CloseReason::SystemEnds || reason == CloseReason::TaskManager;
  if (cancels)
    Cancelled();
  return cancels;
}

std::shared_ptr<PC4s> Screen::PC4Records() {
  Accessed("Get", "PC4Records");
  if (!pc4Records_)
    pc4Records_ = std::make_shared<PC4s>();
  return pc4Records_;
}

void Screen::BeginRecords() {
  if (given_.writeFile == kTrue)
    return BeginFile(given_.govFilename);
  output_.reset();
  if (!pc4Records_)
    pc4Records_ = std::make_shared<PC4s>();
  pc4Records_->Clear();
}

void Screen::BeginFile(std::string_view path) {
  output_.reset();
  Files& files = *TheModule().files;
  if (files.Exists(path))
    files.Delete(path);
  output_ = files.Open(path, OpenMode::Output);
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

std::string Screen::GovernmentRecord(GovernmentFields fields) const {
  fields.contactName = given_.enterName;
  fields.contactTitle = given_.enterTitle;
  return ComposeGovernmentFormat(given_.seqNumber, fields);
}

std::string Screen::FreeRecord(std::initializer_list<FreeFormatSlot> slots) const {
  return ComposeFreeFormat(given_.seqNumber, slots);
}

}  // namespace fiscalon
