#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

#include "core/forms/act_watcher.h"
#include "frontends/played/driven_toolkit.h"

namespace fiscalon {

/// How a picture looks.
struct PictureLook {
  enum class Theme { Light, Dark };
  enum class Format { Png, Svg, Text };
  Theme theme = Theme::Light;
  Format format = Format::Png;
  /// Pixels for each of a usual screen.
  double scale = 1;
};

/// A front end that is played, and can be photographed while a form is up.
class PhotographedToolkit {
 public:
  virtual ~PhotographedToolkit() = default;

  virtual DrivenToolkit& Toolkit() = 0;
  /// Takes a picture of the form that is up.
  virtual void TakePicture() = 0;
  /// The last picture as the bytes of a file.
  virtual std::string Picture() const = 0;
};

/// A front end as programs know it: a row of their table. What one can't do is null.
struct FrontEnd {
  std::string_view name = {};

  /// Plays scenarios, on real controls if it has any. Needs nobody who looks.
  std::unique_ptr<DrivenToolkit> (*played)() = nullptr;
  /// Shows forms to the user; the watcher, if any, hears of all that the user does. Throws `std::runtime_error` where
  /// there is nothing to show them on.
  std::unique_ptr<Toolkit> (*shown)(ActWatcher* watcher) = nullptr;
  /// Why it can show none here and now, in one line of UTF-8; empty where nothing is in the way. Null where there never
  /// is.
  std::string (*hindrance)() = nullptr;
  /// Throws `std::runtime_error` where pictures can't look so.
  std::unique_ptr<PhotographedToolkit> (*photographed)(const PictureLook& look) = nullptr;

  /// Where another program holds it: starts that in the place of this one, with the same arguments. What the front end
  /// does is that program's to say. Throws `std::runtime_error` where it can't be started.
  void (*runsIn)(char** arguments) = nullptr;

  /// A front end that nobody can play proves nothing: a table takes none.
  constexpr bool CanBePlayed() const {
#ifdef __SANITIZE_ADDRESS__
    // While GCC compiles for this sanitizer it can't tell whether the address of a routine is none.
    if (std::is_constant_evaluated())
      return !name.empty();
#endif
    return !name.empty() && (played != nullptr || runsIn != nullptr);
  }
};

/// A program's table. A row that can't be played does not compile.
template <size_t N>
consteval std::array<FrontEnd, N> FrontEndTable(const FrontEnd (&rows)[N]) {
  if (!std::all_of(std::begin(rows), std::end(rows), [](const FrontEnd& row) { return row.CanBePlayed(); }))
    throw "a front end without a name or without a player";
  return std::to_array(rows);
}

}  // namespace fiscalon
