#include "core/logging.h"

#include <algorithm>
#include <memory>
#include <string>

#include "core/messages.h"
#include "core/module_to_change.h"
#include "core/resume_next.h"
#include "core/values/format.h"
#include "core/values/number_text.h"
#include "core/values/text.h"

namespace fiscalon {

namespace {

std::string Now() {
  const ModuleState& module = TheModule();
  return GeneralDate(module.clock->Now(), module.locale);
}

// An entry stays one line, whatever its texts hold.
void PrintLine(const std::string& path, OpenMode mode, std::string line) {
  std::replace_if(
      line.begin(), line.end(), [](char character) { return character == '\r' || character == '\n'; }, ' ');
  const std::unique_ptr<OutputFile> file = TheModule().files->Open(path, mode);
  file->Print(line + "\r\n");
  file->Close();
}

std::string Quoted(std::string_view text) {
  return '"' + std::string(text) + '"';
}

}  // namespace

void EnablePlayByPlay(int16_t value) {
  ModuleToChange().playByPlayEnabled = value;
}

void WritePlayByPlay(std::string_view text, LogReset reset) {
  const ModuleState& module = TheModule();
  if (module.playByPlayEnabled == 0 || Trim(module.mainPath).empty())
    return;
  ResumeNext::Run([&] {
    PrintLine(module.mainPath + NativePath("\\Zelmor\\PBP.txt"),
              reset == LogReset::Drop ? OpenMode::Output : OpenMode::Append,
              Now() + " FISCALON - " + std::string(text));
  });
}

void ShowError(int32_t number, std::string_view description, std::string_view procedure, Silent silent) {
  WritePlayByPlay("BULK - ShowError");
  const std::string numberText = std::to_string(number);
  if (silent == Silent::No) {
    ShowMessage(Filled("The following error: '{1} (Error {2})' occurred in procedure '{3}'.", description,
                       AsGiven(numberText), AsGiven(std::string(procedure))),
                MessageStyle::Critical);
  }
  const ModuleState& module = TheModule();
  PrintLine(Files::JoinPath(module.mainPath, "error.log"), OpenMode::Append,
            Now() + ",Fiscalon," + std::string(Trim(module.customerNumber)) + ',' + NumberText(module.sessionNumber) +
                ',' + numberText + ',' + Quoted(description) + ',' + Quoted(procedure));
}

std::string ErrorReason(const RuntimeError& error) {
  return "Error " + std::to_string(error.Number()) + " - " + std::string(error.Description());
}

}  // namespace fiscalon
