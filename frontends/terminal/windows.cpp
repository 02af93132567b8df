#include "frontends/terminal/windows.h"

#include <string>

#include "core/wording/wording.h"

namespace fiscalon::terminal {
namespace {

bool IsTooSmall(Size size) {
  return size.width < kSmallestScreen.width || size.height < kSmallestScreen.height;
}

}  // namespace

Screen Windows::Drawn(Size size) const {
  Screen screen(size);
  if (IsTooSmall(size)) {
    const auto number = [](int value) { return AsGiven(std::to_string(value)); };
    const Wording needed = Filled("{1} by {2} needed, this is {3} by {4}", number(kSmallestScreen.width),
                                  number(kSmallestScreen.height), number(size.width), number(size.height));
    screen.Put({0, 0}, needed.In(ShownIn()));
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
