#include "tools/fiscalon/front_ends.h"

#include <algorithm>

#include "tools/fiscalon/context.h"

namespace fiscalon {
namespace {

const FrontEnd& Here(const FrontEnd& row, const Context& context) {
  if (row.runsIn != nullptr)
    row.runsIn(context.arguments);
  return row;
}

/// What a front end can do that another program holds is found out there.
template <class Can>
const FrontEnd& GoOnWithOne(Can FrontEnd::*can, const char* does, const Context& context) {
  for (const FrontEnd& row : FrontEnds())
    if (row.*can != nullptr || row.runsIn != nullptr)
      return Here(row, context);
  throw CommandError(std::string("this build has no front end that ") + does + "; build it with FISCALON_QT=ON");
}

}  // namespace

std::vector<std::string> NamesOfFrontEnds() {
  std::vector<std::string> names;
  for (const FrontEnd& row : FrontEnds()) names.emplace_back(row.name);
  return names;
}

const FrontEnd& GoOnWith(std::string_view name, const Context& context) {
  const auto rows = FrontEnds();
  return Here(*std::find_if(rows.begin(), rows.end(), [&](const FrontEnd& row) { return row.name == name; }), context);
}

const FrontEnd& GoOnWithOneThatShows(const Context& context) {
  return GoOnWithOne(&FrontEnd::shown, "shows forms to people", context);
}

const FrontEnd& GoOnWithOneThatTakesPictures(const Context& context) {
  return GoOnWithOne(&FrontEnd::photographed, "takes pictures of forms", context);
}

}  // namespace fiscalon
