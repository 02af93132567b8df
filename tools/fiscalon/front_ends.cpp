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
bool MayBeAble(const FrontEnd& row, Can FrontEnd::*can) {
  return row.*can != nullptr || row.runsIn != nullptr;
}

[[noreturn]] void ComplainOfNone(const std::string& does) {
  throw CommandError("this build has no front end that " + does + "; build it with FISCALON_QT=ON");
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
  std::string hindrances;
  for (const FrontEnd& row : FrontEnds()) {
    if (!MayBeAble(row, &FrontEnd::shown))
      continue;
    const std::string hindrance = row.hindrance == nullptr ? std::string() : row.hindrance();
    if (hindrance.empty())
      return Here(row, context);
    hindrances += (hindrances.empty() ? "" : "; ") + hindrance;
  }
  if (hindrances.empty())
    ComplainOfNone("shows forms to people");
  throw CommandError(hindrances);
}

const FrontEnd& GoOnWithOneThatTakesPictures(const Context& context) {
  for (const FrontEnd& row : FrontEnds())
    if (MayBeAble(row, &FrontEnd::photographed))
      return Here(row, context);
  ComplainOfNone("takes pictures of forms");
}

}  // namespace fiscalon
