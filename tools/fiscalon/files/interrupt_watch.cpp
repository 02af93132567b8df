#include "tools/fiscalon/files/interrupt_watch.h"

namespace fiscalon {
namespace {

int watches = 0;

}  // namespace

InterruptWatch::InterruptWatch() {
  if (watches++ == 0)
    Begin();
}

InterruptWatch::~InterruptWatch() {
  if (--watches == 0)
    End();
}

}  // namespace fiscalon
