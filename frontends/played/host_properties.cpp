#include "frontends/played/host_properties.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

#include "core/platform/code_page.h"
#include "frontends/played/argument_kinds.h"

namespace fiscalon {
namespace {

using Type = HostPropertyType;

struct HostProperty {
  std::string_view name = {};
  std::string_view help = {};
  Type type = Type::Text;
  void (*setText)(Levyra&, std::string_view) = nullptr;
  void (*setNumber)(Levyra&, double) = nullptr;
};

// clang-format off
constexpr std::array kHostProperties = {
    HostProperty{"ZelmorNumber",        "The host's customer number",
                 Type::Text,    [](Levyra& to, std::string_view text) { to.ZelmorNumber(text); }},
    HostProperty{"CompCode",            "Biller code, such as 001052",
                 Type::Text,    [](Levyra& to, std::string_view text) { to.CompCode(text); }},
    HostProperty{"CompName",            "Biller name, shown on the screens",
                 Type::Text,    [](Levyra& to, std::string_view text) { to.CompName(text); }},
    HostProperty{"AccountNumber",       "Account number; no screen receives it",
                 Type::Text,    [](Levyra& to, std::string_view text) { to.AccountNumber(text); }},
    HostProperty{"PaidAmount",          "Amount of the payment in cents: 12345 is 123.45",
                 Type::Text,    [](Levyra& to, std::string_view text) { to.PaidAmount(text); }},
    HostProperty{"PaidDate",            "Payment date: month, day, year in 8 digits",
                 Type::Text,    [](Levyra& to, std::string_view text) { to.PaidDate(text); }},
    HostProperty{"NumberOfInfoCollect", "How many items screen 07 collects, 1 to 12",
                 Type::Text,    [](Levyra& to, std::string_view text) { to.NumberOfInfoCollect(text); }},
    HostProperty{"GovFilename",         "Record file to write",
                 Type::Text,    [](Levyra& to, std::string_view text) { to.GovFilename(text); }},
    HostProperty{"EnterName",           "The person entering, up to 30 characters",
                 Type::Text,    [](Levyra& to, std::string_view text) { to.EnterName(text); }},
    HostProperty{"EnterTitle",          "That person's title, up to 20 characters",
                 Type::Text,    [](Levyra& to, std::string_view text) { to.EnterTitle(text); }},
    HostProperty{"APHoldFlg",           "1: the payment is on hold, without a fixed date",
                 Type::Byte,    nullptr, [](Levyra& to, double value) { to.APHoldFlg(static_cast<uint8_t>(value)); }},
    HostProperty{"SeqNumber",           "Four characters that head each record",
                 Type::Text,    [](Levyra& to, std::string_view text) { to.SeqNumber(text); }},
    HostProperty{"BusinessName",        "Name offered on screen 10",
                 Type::Text,    [](Levyra& to, std::string_view text) { to.BusinessName(text); }},
    HostProperty{"WriteFile",           "True: records go to the file; False: they are printed",
                 Type::Boolean, nullptr, [](Levyra& to, double value) { to.WriteFile(static_cast<int16_t>(value)); }},
    HostProperty{"PlayByPlayEnabled",   "True: keep a play-by-play log",
                 Type::Boolean, nullptr, [](Levyra& to, double value) { to.PlayByPlayEnabled(static_cast<int16_t>(value)); }},
    HostProperty{"MainPath",            "Folder of the logs",
                 Type::Text,    [](Levyra& to, std::string_view text) { to.MainPath(text); }},
    HostProperty{"SessionNumber",       "The host's session number, for the error log",
                 Type::Float,   nullptr, [](Levyra& to, double value) { to.SessionNumber(value); }},
};
// clang-format on
static_assert(std::ranges::none_of(kHostProperties, &std::string_view::empty, &HostProperty::help));

const HostProperty* Find(std::string_view name) {
  const auto found = std::find_if(kHostProperties.begin(), kHostProperties.end(),
                                  [&](const HostProperty& property) { return property.name == name; });
  return found == kHostProperties.end() ? nullptr : &*found;
}

std::optional<double> NumberFor(Type type, std::string_view value) {
  if (type == Type::Boolean)
    return ParseBoolean(value);
  if (const auto whole = ParseNumber(value))
    return type == Type::Byte && (*whole < 0 || *whole > 255) ? std::nullopt : std::optional<double>(*whole);
  double number = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
  const bool isNumber = error == std::errc() && end == value.data() + value.size() && std::isfinite(number);
  return isNumber && type == Type::Float ? std::optional(number) : std::nullopt;
}

}  // namespace

std::vector<HostPropertyHelp> HostProperties() {
  std::vector<HostPropertyHelp> properties;
  properties.reserve(std::size(kHostProperties));
  for (const HostProperty& property : kHostProperties)
    properties.push_back({property.name, property.help, property.type});
  return properties;
}

std::string ComplaintAboutHostProperty(std::string_view name, std::string_view value) {
  const HostProperty* property = Find(name);
  if (property == nullptr) {
    std::string complaint = "\"" + std::string(name) + "\" is no property that a host sets; there are ";
    for (const HostProperty& each : kHostProperties)
      complaint.append(&each == kHostProperties.data() ? "" : ", ").append(each.name);
    return complaint;
  }
  if (property->type == Type::Text || NumberFor(property->type, value))
    return {};
  return std::string(name) + " takes " +
         (property->type == Type::Boolean ? "True, False or a number from -32768 to 32767"
          : property->type == Type::Byte  ? "a whole number from 0 to 255"
                                          : "a number") +
         ", not \"" + std::string(value) + "\"";
}

void SetHostProperty(Levyra& session, std::string_view name, std::string_view value) {
  const HostProperty& property = *Find(name);
  if (property.type == Type::Text)
    property.setText(session, FromUtf8(value));
  else
    property.setNumber(session, *NumberFor(property.type, value));
}

}  // namespace fiscalon
