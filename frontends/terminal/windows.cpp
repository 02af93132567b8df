#include "frontends/terminal/windows.h"

#include <string>

namespace fiscalon::terminal {
namespace {

bool IsTooSmall(Size size) {
  return size.width < kSmallestScreen.width || size.height < kSmallestScreen.height;
}

}  // namespace

Screen Windows::Drawn(Size size) const {
  Screen screen(size);
  if (IsTooSmall(size)) {
    screen.Put({0, 0}, std::to_string(kSmallestScreen.width) + " by " + std::to_string(kSmallestScreen.height) +
                           " needed, this is " + std::to_string(size.width) + " by " + std::to_string(size.height));
    screen.Cursor(Point{0, 0});
    return screen;
  }
  for (Window* window : all_) window->Draw(screen);
  return screen;
}

void Windows::Take(const Input& input, Size size) const {
  if (!all_.empty() && !IsTooSmall(size))
    all_.back()->Take(input);
}

}  // namespace fiscalon::terminal
