#include "core/provinces.h"

#include <array>
#include <string_view>

namespace fiscalon {

void LoadProvinces(ListControl& list) {
  constexpr std::array<std::string_view, 13> kCodes = {"AB", "BC", "MB", "NB", "NL", "NS", "NT",
                                                       "NU", "ON", "PE", "QC", "SK", "YT"};
  list.Clear();
  for (const std::string_view code : kCodes) list.AddItem(AsGiven(std::string(code)));
}

}  // namespace fiscalon
