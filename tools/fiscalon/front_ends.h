#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "frontends/played/front_end.h"

/// The front ends that the commands show forms by.
namespace fiscalon {

struct Context;

/// A row for each that the program knows. Where nobody names one, the first that can do what is wanted does it.
std::span<const FrontEnd> FrontEnds();

/// What `--toolkit` calls them.
std::vector<std::string> NamesOfFrontEnds();

// The front end that a command goes on with. To be called before the command reads input or writes output: where
// another program holds the front end, that is started in the place of this one, with the same arguments. Loading a
// toolkit takes longer than many a command does, so that not every program has every one.

/// The one of that name, which is one of `NamesOfFrontEnds`.
const FrontEnd& GoOnWith(std::string_view name, const Context& context);
// The first that can do it, and that nothing hinders here. A `CommandError` where this build has none.
const FrontEnd& GoOnWithOneThatShows(const Context& context);
const FrontEnd& GoOnWithOneThatTakesPictures(const Context& context);

}  // namespace fiscalon
