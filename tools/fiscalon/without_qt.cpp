#include "tools/fiscalon/context.h"
#include "tools/fiscalon/qt_front_end.h"

namespace fiscalon {
namespace {

[[noreturn]] void Refuse() {
  throw CommandError("this build has no Qt front end; build it with FISCALON_QT=ON");
}

}  // namespace

std::unique_ptr<DrivenToolkit> NewPlayedQtToolkit() {
  Refuse();
}

std::unique_ptr<Toolkit> NewQtToolkit(ActWatcher* /*watcher*/) {
  Refuse();
}

std::unique_ptr<PhotographedToolkit> NewPhotographedToolkit(const PictureLook& /*look*/) {
  Refuse();
}

}  // namespace fiscalon
