#include "core/forms/captioned.h"

#include <utility>

#include "core/forms/form.h"

namespace fiscalon {

void Captioned::Reset(PassKey<fiscalon::Form> key) {
  Control::Reset(key);
  caption_ = designedCaption_;
}

const Wording& Captioned::WordedCaption() const {
  Touch();
  return caption_;
}

std::string Captioned::ShownCaption() const {
  return WordedCaption().In(Owner().ShownIn());
}

void Captioned::Caption(Wording caption) {
  Touch();
  caption_ = std::move(caption);
  Changed();
}

}  // namespace fiscalon
