#pragma once

#include "frontends/played/front_end.h"

namespace fiscalon::qt {

std::unique_ptr<DrivenToolkit> NewPlayed();
std::unique_ptr<Toolkit> NewShown(ActWatcher* watcher);
std::unique_ptr<PhotographedToolkit> NewPhotographed(const PictureLook& look);

inline constexpr FrontEnd kFrontEnd = {
    .name = "qt", .played = NewPlayed, .shown = NewShown, .photographed = NewPhotographed};

}  // namespace fiscalon::qt
