#include "tools/fiscalon/commands/collecting.h"

#include "core/found_records.h"
#include "core/module_state.h"
#include "frontends/played/host_properties.h"
#include "tools/fiscalon/files/whole_file.h"
#include "tools/fiscalon/front_ends.h"

namespace fiscalon {

Collecting::~Collecting() {
  UseToolkit(nullptr);
}

const FrontEnd& Collecting::FrontEndFor(const std::string& toolkit, const Context& context) {
  if (toolkit.empty())
    return GoOnWithOneThatShows(context);
  const FrontEnd& frontEnd = GoOnWith(toolkit, context);
  if (frontEnd.shown == nullptr)
    throw CommandError("the front end " + toolkit + " shows forms to nobody");
  return frontEnd;
}

void Collecting::Begin(const FrontEnd& frontEnd) {
  toolkit_ = frontEnd.shown(&recorder_);
  UseToolkit(toolkit_.get());
  context_.SetUpModule();
  recorder_.Today(TheModule().clock->Now());
  recorder_.UsesLocale(LocaleToRecord());
  if (!context_.languageName.empty())
    recorder_.UsesLanguage(context_.languageName);
  session_.emplace();
}

/// A user's own locale may be another one where the scenario is played, so it is named where it has a name.
std::string Collecting::LocaleToRecord() const {
  if (!context_.localeName.empty())
    return context_.localeName;
  Locale own = context_.SpokenLocale();
  for (const char* name : {"en-CA", "en-US", "fr-CA"}) {
    const Locale named = *NamedLocale(name);
    own.name = named.name;
    if (own == named)
      return name;
  }
  return "system";
}

void Collecting::Set(std::string_view property, const std::string& value) {
  SetHostProperty(*session_, property, value);
  recorder_.Host(property, value);
}

bool Collecting::Show() {
  recorder_.Shows(payment_.code);
  try {
    const bool result = session_->ShowLevyraScreen(payment_.code);
    RecordResult(result);
    WriteRecording();
    return result;
  } catch (const RuntimeError& error) {
    recorder_.Error(error);
    WriteRecording();
    throw;
  }
}

void Collecting::RecordResult(bool result) {
  recorder_.Result(result);
  if (!result)
    return;
  recorder_.Records(FindRecords(*session_).records);
  if (session_->WriteFile() == kTrue || session_->PC4Records() == nullptr)
    return;
  int32_t position = 0;
  for (const PC4& member : *session_->PC4Records()) {
    ++position;
    if (!member.TheDate().empty() || !member.Amount().empty())
      recorder_.Invoice(position, member);
  }
}

/// The payment is collected by now, or not, whatever becomes of its recording.
void Collecting::WriteRecording() const {
  if (payment_.record.empty())
    return;
  try {
    WholeFile file(payment_.record);
    file.Write(recorder_.Text());
    file.Commit();
  } catch (const CommandError& error) {
    Complain(std::string("fiscalon: the session is not recorded: ") + error.what());
  }
}

}  // namespace fiscalon
