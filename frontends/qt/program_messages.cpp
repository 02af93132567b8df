#include "frontends/qt/program_messages.h"

#include <QLoggingCategory>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

namespace fiscalon::qt {
namespace {

const char* theProgram = "";

/// The offscreen platform complains of each window that it has no window manager, and Qt of users without a session.
constexpr std::array<std::string_view, 2> kComplaints = {"This plugin does not support",
                                                         "QStandardPaths: XDG_RUNTIME_DIR"};

void PassMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  const std::string text = qFormatLogMessage(type, context, message).toStdString();
  const bool ofPlatforms = context.category != nullptr && std::string_view(context.category) == "qt.qpa.plugin";
  const bool complains = std::any_of(kComplaints.begin(), kComplaints.end(), [&](std::string_view complaint) {
    return text.find(complaint) != std::string::npos;
  });
  if (type == QtFatalMsg && text.find("platform plugin") != std::string::npos) {
    std::cerr << theProgram << ": there is no display to show windows on; set DISPLAY or WAYLAND_DISPLAY" << std::endl;
    std::_Exit(2);
  }
  if (!complains && !ofPlatforms)
    std::cerr << text << std::endl;
  if (type == QtFatalMsg)
    std::abort();
}

}  // namespace

void InstallProgramMessages(const char* program) {
  theProgram = program;
  qInstallMessageHandler(PassMessage);
}

}  // namespace fiscalon::qt
