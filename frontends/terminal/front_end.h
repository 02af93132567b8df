#pragma once

#include "frontends/played/front_end.h"

namespace fiscalon::terminal {

std::unique_ptr<DrivenToolkit> NewPlayed();
std::unique_ptr<Toolkit> NewShown(ActWatcher* watcher);

std::string Hindrance();
std::unique_ptr<PhotographedToolkit> NewPhotographed(const PictureLook& look);

inline constexpr FrontEnd kFrontEnd = {.name = "terminal",
                                       .played = NewPlayed,
                                       .shown = NewShown,
                                       .hindrance = Hindrance,
                                       .photographed = NewPhotographed};

}  // namespace fiscalon::terminal
