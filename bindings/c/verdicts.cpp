#include "bindings/c/verdicts.h"

#include <algorithm>

#include "core/platform/code_page.h"

namespace fiscalon::c {

namespace {

// A call into another language costs microseconds, and what is handed to another thread there tens of them. More would
// not stay near to the processor.
constexpr size_t kMostVerdicts = 4096;
constexpr size_t kMostFaults = 4096;
constexpr size_t kTexts = 512 * 1024;

/// A character of the code page has three bytes at most, and a zero stands behind each text.
size_t RoomForText(std::string_view text) {
  return 3 * text.size() + 1;
}

}  // namespace

size_t Verdicts::RoomFor(const Told& told) {
  size_t room = 1;
  for (const std::string_view text : {told.seq, told.screen, told.reason, told.lines}) room += RoomForText(text);
  for (const Fault& fault : told.faults)
    for (const std::string_view text : {std::string_view(fault.field), fault.name, std::string_view(fault.value),
                                        std::string_view(fault.code), std::string_view(fault.message)})
      room += RoomForText(text);
  return room;
}

bool Verdicts::Fits(const Told& told) const {
  return verdicts_.empty() ||
         (verdicts_.size() < kMostVerdicts && faults_.size() + told.faults.size() <= faults_.capacity() &&
          texts_.size() + RoomFor(told) <= texts_.capacity());
}

fiscalon_text Verdicts::Keep(std::string_view text) {
  const size_t start = texts_.size();
  if (IsAscii(text))
    texts_.append(text);
  else
    texts_.append(ToUtf8(text));
  texts_ += '\0';
  return {.data = texts_.data() + start, .size = texts_.size() - start - 1};
}

void Verdicts::Add(const Told& told) {
  if (verdicts_.empty()) {
    verdicts_.reserve(kMostVerdicts);
    faults_.reserve(std::max(kMostFaults, told.faults.size()));
    texts_.reserve(std::max(kTexts, RoomFor(told)));
  }
  const size_t firstFault = faults_.size();
  for (const Fault& fault : told.faults)
    faults_.push_back({.size = sizeof(fiscalon_fault),
                       .line = fault.line,
                       .field = Keep(fault.field),
                       .name = Keep(fault.name),
                       .value = Keep(fault.value),
                       .code = Keep(fault.code),
                       .message = Keep(fault.message)});
  const fiscalon_text lines = told.lines.empty() ? fiscalon_text{.data = "", .size = 0} : Keep(told.lines);
  verdicts_.push_back({.size = sizeof(fiscalon_verdict),
                       .row = told.row,
                       .line = told.line,
                       .valid = told.reason.empty() ? 1 : 0,
                       .unused = 0,
                       .seq = Keep(told.seq),
                       .screen = Keep(told.screen),
                       .reason = Keep(told.reason),
                       .lines = lines,
                       .faults = told.faults.empty() ? nullptr : faults_.data() + firstFault,
                       .fault_count = told.faults.size()});
  texts_ += '\n';
}

void Verdicts::Clear() {
  verdicts_.clear();
  faults_.clear();
  texts_.clear();
}

}  // namespace fiscalon::c
