#include "tools/reading/payment_advice.h"

#include <array>
#include <filesystem>
#include <string_view>

#include "core/module_state.h"
#include "core/platform/code_page.h"
#include "core/platform/utf8_path.h"
#include "core/records/record_layout.h"
#include "core/values/text.h"
#include "tools/reading/utf8_words.h"

namespace fiscalon {
namespace {

constexpr size_t kNameCharacters = FieldNamed(kGovernmentLayout, "ContactName").Width();
constexpr size_t kTitleCharacters = FieldNamed(kGovernmentLayout, "ContactTitle").Width();

std::string Say(const PaymentWords& words, std::string_view text, const std::vector<std::string>& places) {
  return Utf8Words(text, places, words.language);
}

/// Of a name in UTF-8; an empty one is the folder that the program is in.
bool IsFolder(std::string_view name) {
  std::error_code ignored;
  return std::filesystem::is_directory(Utf8Path(name.empty() ? "." : name), ignored);
}

/// The sentence for a text that is longer than the columns it goes to; empty where it fits.
std::string TooLong(const PaymentWords& words, std::string_view property, std::string_view text, size_t columns) {
  const size_t length = Trim(text).size();
  if (length <= columns)
    return {};
  return Say(words, "{1} has {2} characters, and a record has room for {3}: shorten it.",
             {std::string(property), std::to_string(length), std::to_string(columns)});
}

std::string OnMissingFolder(const Levyra& session, const PaymentWords& words) {
  const std::string folder = Utf8Of(Utf8Path(ToUtf8(session.GovFilename())).parent_path());
  if (session.WriteFile() == kTrue && !IsFolder(folder))
    return Say(words, R"({1} is "{2}", and there is no folder "{3}": make it, or name another file.)",
               {std::string(words.govFilename), ToUtf8(session.GovFilename()), folder});
  const std::string& logs = TheModule().mainPath;
  if (!IsFolder(ToUtf8(logs)))
    return Say(words, "{1} is \"{2}\", and there is no such folder for error.log: make it, or name another.",
               {std::string(words.mainPath), ToUtf8(logs)});
  return {};
}

std::string OnAccess(const Levyra& session, const PaymentWords& words) {
  if (session.WriteFile() != kTrue)
    return Say(words, "{1} is \"{2}\", and error.log can't be written there: look at its permissions.",
               {std::string(words.mainPath), ToUtf8(TheModule().mainPath)});
  const std::string name = session.GovFilename();
  const std::string file(words.govFilename);
  if (name.empty())
    return Say(words, "{1} is empty, and WriteFile is True: name the file that the records go to.", {file});
  if (IsFolder(ToUtf8(name)))
    return Say(words, "{1} is \"{2}\", which is a folder: name a file in it.", {file, ToUtf8(name)});
  return Say(words, "{1} is \"{2}\", and that file can't be written: look at its permissions and its folder's.",
             {file, ToUtf8(name)});
}

std::string OnOldFile(const Levyra& session, const PaymentWords& words) {
  return Say(words,
             "{1} is \"{2}\", and the older file of that name can't be deleted: look at the permissions of its folder.",
             {std::string(words.govFilename), ToUtf8(session.GovFilename())});
}

std::string OnFullDisk(const Levyra& session, const PaymentWords& words) {
  return Say(words, "{1} is \"{2}\", and its disk is full: make room, then show the payment again.",
             {std::string(words.govFilename), ToUtf8(session.GovFilename())});
}

std::string OnTooLong(const Levyra& session, const PaymentWords& words) {
  const std::string name = TooLong(words, words.enterName, session.EnterName(), kNameCharacters);
  return name.empty() ? TooLong(words, words.enterTitle, session.EnterTitle(), kTitleCharacters) : name;
}

std::string OnNumber(const Levyra& session, const PaymentWords& words) {
  const std::string amount(words.paidAmount);
  if (session.PaidAmount().empty())
    return Say(words, "{1} takes cents as digits, such as 12345.", {amount});
  return Say(
      words,
      "{1} is \"{2}\", in dollars: it, or an amount that was typed, is no number or too large. Correct it; shown "
      "again, the screen goes on with what was typed.",
      {amount, ToUtf8(session.PaidAmount())});
}

struct Advice {
  int32_t number = 0;
  std::string (*about)(const Levyra& session, const PaymentWords& words) = nullptr;
};

constexpr std::array kAdvice = {
    Advice{error_number::kInvalidProcedureCall, OnTooLong},
    Advice{error_number::kOverflow, OnNumber},
    Advice{error_number::kTypeMismatch, OnNumber},
    Advice{error_number::kFileNotFound, OnOldFile},
    Advice{error_number::kDiskFull, OnFullDisk},
    Advice{error_number::kPermissionDenied, OnOldFile},
    Advice{error_number::kPathFileAccessError, OnAccess},
    Advice{error_number::kPathNotFound, OnMissingFolder},
};

}  // namespace

std::string AdviceOn(const RuntimeError& error, const Levyra& session, const PaymentWords& words) {
  for (const Advice& advice : kAdvice)
    if (advice.number == error.Number())
      return advice.about(session, words);
  return {};
}

}  // namespace fiscalon
