#include <filesystem>
#include <system_error>

#include "core/host_setup.h"
#include "core/platform/utf8_path.h"
#include "frontends/played/host_properties.h"
#include "frontends/played/scenario_run.h"

/// What a host says and does.
namespace fiscalon {
namespace {

void SetToday(ScenarioRun& /*run*/, const Arguments& arguments) {
  const std::string time = arguments.size() > 1 ? arguments[1] : std::string();
  UseFixedClock(*ParseDateTime(arguments[0], time));
}

void SetLocale(ScenarioRun& /*run*/, const Arguments& arguments) {
  UseLocale(arguments[0]);
}

void SetLanguage(ScenarioRun& /*run*/, const Arguments& arguments) {
  UseLanguage(arguments[0]);
}

std::string ComplaintAboutHost(const Arguments& arguments) {
  return ComplaintAboutHostProperty(arguments[0], arguments[1]);
}

void SetHost(ScenarioRun& run, const Arguments& arguments) {
  try {
    SetHostProperty(run.Session(), arguments[0], arguments[1]);
  } catch (const RuntimeError& error) {
    run.Fail("the property to take its value", "error " + std::to_string(error.Number()) + ", " + error.Description());
  }
}

void MakeFolder(ScenarioRun& run, const Arguments& arguments) {
  std::error_code error;
  const auto folder = Utf8Path(arguments[0]);
  std::filesystem::create_directories(folder, error);
  if (!std::filesystem::is_directory(folder, error))
    run.Fail("the folder " + arguments[0] + " to be made", error ? error.message() : "a file is in its place");
}

void Show(ScenarioRun& run, const Arguments& arguments) {
  run.Show(arguments[0]);
}

// clang-format off
constexpr std::array kHostLines = {
    LineForm{"today",    Turn::Host, {&argument::kDate}, {&argument::kTime}, SetToday},
    LineForm{"locale",   Turn::Host, {&argument::kLocale}, {}, SetLocale},
    LineForm{"language", Turn::Host, {&argument::kLanguage}, {}, SetLanguage},
    LineForm{"host",     Turn::Host, {&argument::kProperty, &argument::kValue}, {}, SetHost, ComplaintAboutHost},
    LineForm{"folder",   Turn::Host, {&argument::kPath}, {}, MakeFolder},
    LineForm{"show",     Turn::Host, {&argument::kCode}, {}, Show},
};
// clang-format on

}  // namespace

std::span<const LineForm> HostLines() {
  return kHostLines;
}

}  // namespace fiscalon
