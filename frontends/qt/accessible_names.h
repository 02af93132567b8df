#pragma once

#include <QWidget>
#include <functional>

#include "core/forms/form.h"

namespace fiscalon {

/// Gives each field the caption that the eye reads before it as its accessible name, and its hint as description.
/// A field without a caption of its own is named by the last caption before it in its row, or by its group's heading.
void NameFields(const Form& form, const std::function<QWidget&(const Control&)>& widgetOf);

}  // namespace fiscalon
