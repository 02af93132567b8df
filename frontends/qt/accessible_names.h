#pragma once

#include <QWidget>
#include <functional>

#include "core/forms/laid_out.h"

namespace fiscalon::qt {

/// Gives the fields their names and descriptions for programs that read the form aloud.
void NameFields(const Form& form, const std::function<QWidget&(const Control&)>& widgetOf);

}  // namespace fiscalon::qt
