#include "tools/paying/screen_show.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "core/module_state.h"
#include "core/platform/code_page.h"
#include "core/platform/utf8_path.h"
#include "core/session.h"
#include "tools/paying/payment_doubts.h"
#include "tools/reading/payment_advice.h"
#include "tools/reading/record_taker.h"
#include "tools/reading/utf8_words.h"

namespace fiscalon {
namespace {

/// When the file was last written; nothing where there is none.
std::optional<std::filesystem::file_time_type> LastWritten(const std::string& name) {
  std::error_code error;
  const auto time = std::filesystem::last_write_time(Utf8Path(name), error);
  return error ? std::nullopt : std::optional(time);
}

ShowOutcome RecordsHandedBack(const Levyra& session, const LaunchRow& screen) {
  ShowOutcome outcome;
  if (const auto& members = session.PC4Records()) {
    outcome.records = TakeApart(*members, &screen);
    // The collection is the form's own: a show that writes nothing would hand these back once more.
    members->Clear();
  }
  outcome.words = outcome.records.empty()
                      ? Utf8Words("Accepted, but no records were handed back.")
                      : Utf8Words("Accepted. Records handed back: {1}.", {std::to_string(outcome.records.size())});
  return outcome;
}

ShowOutcome RecordsInFile(const std::string& name, const LaunchRow& screen) {
  std::ifstream file(Utf8Path(name), std::ios::binary);
  if (!file)
    return {.words = Utf8Words("Accepted, but the record file can't be read: {1}\n{2}",
                               {Utf8Words(std::generic_category().message(errno)), name})};
  const std::string content{std::istreambuf_iterator<char>(file), {}};
  ShowOutcome outcome = {.records = TakeApart(std::string_view(content), &screen)};
  outcome.words =
      Utf8Words("Accepted. Records written to the file: {1}.\n{2}", {std::to_string(outcome.records.size()), name});
  return outcome;
}

ShowOutcome Launch(Levyra& session, const LaunchRow& screen) {
  const bool toFile = session.WriteFile() == kTrue;
  const std::string name = ToUtf8(session.GovFilename());
  const auto before = LastWritten(name);
  if (!session.ShowLevyraScreen(screen.code))
    return {.words = Utf8Words("Cancelled. Nothing was written.")};
  if (!toFile)
    return RecordsHandedBack(session, screen);
  if (LastWritten(name) == before)
    return {.words = Utf8Words(before ? "Accepted, but no records were written: the file is from before.\n{1}"
                                      : "Accepted, but no records were written: there is no file.\n{1}",
                               {name})};
  return RecordsInFile(name, screen);
}

std::string WordsOf(const RuntimeError& error, const Levyra& session, const LaunchRow& screen) {
  const std::string file = Utf8Words("The record file");
  const std::string name = Utf8Words("Entered by");
  const std::string title = Utf8Words("Title");
  const std::string amount = Utf8Words("The amount");
  const std::string advice = AdviceOn(error, session,
                                      {.govFilename = file,
                                       .enterName = name,
                                       .enterTitle = title,
                                       .paidAmount = amount,
                                       .language = TheModule().language});
  return Utf8Words(
             "Screen {1} ended with an error. Shown again, it goes on with what was typed.\nNumber: {2}\nSource: "
             "{3}\nDescription: {4}",
             {std::string(screen.code), std::to_string(error.Number()), ToUtf8(error.Source()),
              Utf8Words(error.Description())}) +
         (advice.empty() ? "" : "\n" + advice);
}

}  // namespace

std::optional<Obstacle> ObstacleIn(const Payment& payment) {
  std::optional<Obstacle> obstacle;
  for (const Doubt& doubt : DoubtsAbout(payment)) {
    if (doubt.weight != Doubt::Weight::Stops)
      continue;
    if (obstacle)
      obstacle->reasons += "\n" + SentenceOf(doubt);
    else
      obstacle = {.reasons = SentenceOf(doubt), .entry = doubt.entry};
  }
  return obstacle;
}

bool MayReplaceFile(const Payment& payment, std::string_view title) {
  const std::string question = QuestionAbout(payment);
  return question.empty() || TheToolkit().ShowMessage({.text = FromUtf8(question),
                                                       .style = MessageStyle::Exclamation,
                                                       .buttons = MessageButtons::YesNo,
                                                       .defaultButton = DefaultButton::Second,
                                                       .title = std::string(title),
                                                       .language = TheModule().language}) == MessageAnswer::Yes;
}

ShowOutcome ShowScreen(const Payment& payment, const LaunchRow& screen) {
  Levyra session;
  try {
    Give(payment, session);
    return Launch(session, screen);
  } catch (const RuntimeError& error) {
    return {.words = WordsOf(error, session, screen)};
  }
}

}  // namespace fiscalon
