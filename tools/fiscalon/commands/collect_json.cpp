#include "tools/fiscalon/commands/collect_json.h"

#include <array>
#include <filesystem>
#include <new>
#include <nlohmann/json.hpp>
#include <optional>

#include "core/launch.h"
#include "core/platform/code_page.h"
#include "core/platform/utf8_path.h"
#include "tools/fiscalon/commands/collect_request.h"
#include "tools/fiscalon/files/form_streams.h"
#include "tools/fiscalon/files/input_file.h"
#include "tools/fiscalon/files/interrupt_watch.h"
#include "tools/fiscalon/files/standard_output.h"
#include "tools/fiscalon/files/whole_file.h"
#include "tools/fiscalon/screen_code.h"
#include "tools/reading/payment_advice.h"

namespace fiscalon {
namespace {

using Answer = nlohmann::ordered_json;

/// Of errors that are none of the library's.
constexpr std::string_view kCommand = "fiscalon collect";

Answer OrNull(const std::string& text) {
  return text.empty() ? Answer() : Answer(text);
}

/// The place is null where there is none.
Answer JsonError(Answer number, std::string_view source, std::string_view description, const std::string& remedy,
                 const std::string& key = {}, uint64_t line = 0) {
  return {{"error",
           {{"number", std::move(number)},
            {"source", source},
            {"description", description},
            {"remedy", OrNull(remedy)},
            {"key", OrNull(key)},
            {"line", line == 0 ? Answer() : Answer(line)}}}};
}

Answer JsonRecordsOf(const Levyra& payment) {
  if (payment.PC4Records() == nullptr)
    return {};
  Answer records = Answer::array();
  for (const PC4& member : *payment.PC4Records())
    records.push_back({{"TheDate", ToUtf8(member.TheDate())},
                       {"Amount", ToUtf8(member.Amount())},
                       {"Description", ToUtf8(member.Description())}});
  return records;
}

/// The error that the output of the records would end with; nothing where they have a place.
std::optional<int32_t> ErrorOfRecordFile(const Levyra& payment) {
  if (payment.WriteFile() != kTrue)
    return {};
  std::error_code ignored;
  const std::string name = ToUtf8(payment.GovFilename());
  const auto place = std::filesystem::absolute(Utf8Path(name), ignored);
  if (name.empty() || std::filesystem::is_directory(place, ignored))
    return error_number::kPathFileAccessError;
  if (!std::filesystem::is_directory(place.parent_path(), ignored))
    return error_number::kPathNotFound;
  return {};
}

/// Raises it as the screen would, before a user fills the form in vain.
void RaiseWhereRecordsHaveNoPlace(const Levyra& payment) {
  try {
    if (const auto number = ErrorOfRecordFile(payment))
      Raise(*number);
  } catch (const RuntimeError& error) {
    throw RuntimeError(error.Number(), error.Description(), "Fiscalon.ShowLevyraScreen");
  }
}

/// The words for a screen that there is none of.
std::string AdviceOnScreen(const std::string& code) {
  try {
    ScreenOf(code);
    return {};
  } catch (const UsageError& error) {
    return error.what();
  }
}

class Collection {
 public:
  Collection(std::string request, PaymentToCollect payment, const Context& context)
      : file_(std::move(request)), context_(context) {
    request_.payment = std::move(payment);
  }

  Answer Run() {
    // Another program may hold the front end, and is to find the request unread. A terminal is in the way of nothing
    // here before it has been taken.
    const FrontEnd* frontEnd = nullptr;
    try {
      frontEnd = &Collecting::FrontEndFor(request_.payment.toolkit, context_);
    } catch (const CommandError&) {
      frontEnd = nullptr;
    }
    Read();
    if (!request_.payment.record.empty())
      WholeFile::Try(request_.payment.record);
    streams_.Take();
    if (frontEnd == nullptr)
      frontEnd = &Collecting::FrontEndFor(request_.payment.toolkit, context_);
    return Show(*frontEnd);
  }

 private:
  void Read() {
    std::string json;
    try {
      json = ReadInput(file_);
    } catch (const UnreadableFile& error) {
      throw CommandError((file_ == "-" ? "standard input" : file_) + " can't be read: " + error.what());
    }
    CollectRequest read = ReadCollectRequest(json);
    read.payment.toolkit = std::move(request_.payment.toolkit);
    read.payment.record = std::move(request_.payment.record);
    request_ = std::move(read);
  }

  Answer Show(const FrontEnd& frontEnd) const {
    Collecting collecting(request_.payment, context_);
    collecting.Begin(frontEnd);
    // The member of the request that errors are about, while there is one.
    std::string key;
    try {
      for (const auto& [property, value] : request_.payment.host) {
        key = "payment." + property;
        collecting.Set(property, value);
      }
      key = "payment.GovFilename";
      // A code that no screen has is told first, as the show itself does.
      if (FindLaunchRow(FromUtf8(request_.payment.code)) != nullptr)
        RaiseWhereRecordsHaveNoPlace(collecting.Payment());
      key.clear();
      const bool result = collecting.Show();
      return {{"result", result}, {"records", JsonRecordsOf(collecting.Payment())}};
    } catch (const RuntimeError& error) {
      if (error.Number() == error_number::kInvalidScreenType)
        return ErrorAnswer(error, AdviceOnScreen(request_.payment.code), "screen");
      return ErrorAnswer(error, AdviceOn(error, collecting.Payment()), key);
    }
  }

  Answer ErrorAnswer(const RuntimeError& error, const std::string& remedy, const std::string& key) const {
    return JsonError(error.Number(), ToUtf8(error.Source()), ToUtf8(error.Description()), remedy, key,
                     request_.LineOf(key));
  }

  std::string file_;
  const Context& context_;
  CollectRequest request_;
  FormStreams streams_;
};

Answer AnswerTo(const std::string& request, PaymentToCollect payment, const Context& context) {
  try {
    return Collection(request, std::move(payment), context).Run();
  } catch (const RequestError& error) {
    return JsonError({}, kCommand, error.what(), error.Remedy(), error.Key(), error.Line());
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const std::exception& error) {
    return JsonError({}, kCommand, error.what(), {});
  }
}

ExitStatus StatusOf(const Answer& answer) {
  if (answer.contains("error"))
    return ExitStatus::Unusable;
  return answer["result"] == true ? ExitStatus::Done : ExitStatus::Invalid;
}

}  // namespace

ExitStatus CollectByJson(const std::string& request, PaymentToCollect payment, const Context& context) {
  const Answer answer = AnswerTo(request, std::move(payment), context);
  // What stands in a request may be no text at all, such as a name of a file that is no UTF-8.
  const std::string line = answer.dump(-1, ' ', false, Answer::error_handler_t::replace) + '\n';
  const InterruptWatch watch;
  StandardOutput::WritePieces(line, std::array{line.size()});
  return StatusOf(answer);
}

}  // namespace fiscalon
