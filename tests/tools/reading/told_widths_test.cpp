#include <gmock/gmock.h>

#include <fstream>
#include <iterator>
#include <string>

#include "core/records/record_layout.h"
#include "frontends/played/host_properties.h"
#include "tools/paying/payment_entries.h"

namespace fiscalon::told_widths_test {
namespace {

using testing::HasSubstr;

// How wide a record's fields are is told to people in words of several places, which no table makes.

const size_t kName = FieldNamed(kGovernmentLayout, "ContactName").Width();
const size_t kTitle = FieldNamed(kGovernmentLayout, "ContactTitle").Width();

std::string Characters(size_t width) {
  return std::to_string(width) + " characters";
}

TEST(ToldWidths, OfContactsAreTheLayoutsInHelps) {
  const auto helpOn = [](std::string_view name) {
    for (const HostPropertyHelp& property : HostProperties())
      if (property.name == name)
        return std::string(property.help);
    return std::string();
  };
  EXPECT_THAT(helpOn("EnterName"), HasSubstr("up to " + Characters(kName)));
  EXPECT_THAT(helpOn("EnterTitle"), HasSubstr("up to " + Characters(kTitle)));
}

TEST(ToldWidths, OfContactsAreTheLayoutsAtADesk) {
  EXPECT_THAT(WordsOf(PaymentEntry::EnteredBy).hint, HasSubstr(Characters(kName)));
  EXPECT_THAT(WordsOf(PaymentEntry::Title).hint, HasSubstr(Characters(kTitle)));
}

TEST(ToldWidths, AreTheLayoutsInTheTypeLibrary) {
  std::ifstream file(FISCALON_SOURCE_DIR "/component/fiscalon.idl");
  const std::string library(std::istreambuf_iterator<char>(file), {});
  const auto expectTold = [&](std::string_view property, const std::string& words) {
    EXPECT_THAT(library, HasSubstr(words + ".\")]\n    HRESULT " + std::string(property) + "([out, retval]"));
  };
  const auto expectAllTold = [&](std::span<const RecordField> fields) {
    for (const RecordField& field : fields) expectTold(field.name, "helpstring(\"" + Characters(field.Width()));
  };
  // Behind the head, and before the blanks at the end.
  expectAllTold(std::span(kGovernmentLayout).subspan(kRecordHead.size(), 7));
  expectAllTold(std::span(kFreeFormatLayout).subspan(kRecordHead.size(), 2));
  expectTold("EnterName", "at most " + Characters(kName));
  expectTold("EnterTitle", "at most " + Characters(kTitle));
}

}  // namespace
}  // namespace fiscalon::told_widths_test
