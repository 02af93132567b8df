#pragma once

#include <string>
#include <string_view>

#include "component/failure.h"
#include "component/texts.h"

/// A text of one of the library's objects, read and written by the pair of overloads that it is there.
namespace fiscalon::component {

template <typename Core>
HRESULT ReadText(REFIID interfaceId, BSTR* place, const Core& core, std::string (Core::*get)() const) {
  return Answer(interfaceId, place, [&] { return ToHost((core.*get)()); });
}

template <typename Core>
HRESULT WriteText(REFIID interfaceId, BSTR text, Core& core, void (Core::*let)(std::string_view)) {
  return Answer(interfaceId, [&] { (core.*let)(FromHost(text)); });
}

template <typename Core>
HRESULT WriteText(REFIID interfaceId, BSTR text, Core& core, void (Core::*let)(std::string)) {
  return Answer(interfaceId, [&] { (core.*let)(FromHost(text)); });
}

}  // namespace fiscalon::component
