#pragma once

namespace fiscalon::qt {

/// For the programs of this project, not for hosts: Qt's messages go to standard error without its complaints of a
/// machine that has no desktop, and a display that can't be reached ends the program with exit status 2 and a message
/// that names the remedy, where Qt would abort it. The name is the program's; it must outlive the program.
void InstallProgramMessages(const char* program);

}  // namespace fiscalon::qt
