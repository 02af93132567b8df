#include "core/forms/captioned.h"

#include <utility>

namespace fiscalon {

void Captioned::Reset(PassKey<fiscalon::Form> key) {
  Control::Reset(key);
  caption_ = designedCaption_;
}

std::string Captioned::Caption() const {
  Touch();
  return caption_;
}

void Captioned::Caption(std::string caption) {
  Touch();
  caption_ = std::move(caption);
  Changed();
}

}  // namespace fiscalon
