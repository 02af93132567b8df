// The front end of a program that was built without forms of the system.

#include "tools/fiscalon/context.h"
#include "tools/fiscalon/qt_front_end.h"

namespace fiscalon {

void GoOnWithQt(const Context& /*context*/) {
  throw CommandError("this build has no front end that shows forms");
}

std::unique_ptr<DrivenToolkit> NewPlayedQtToolkit() {
  return nullptr;
}

std::unique_ptr<Toolkit> NewQtToolkit(ActWatcher* /*watcher*/) {
  return nullptr;
}

std::unique_ptr<PhotographedToolkit> NewPhotographedToolkit(const PictureLook& /*look*/) {
  return nullptr;
}

}  // namespace fiscalon
