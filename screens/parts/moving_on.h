#pragma once

#include "core/forms/text_field.h"
#include "screens/parts/asked.h"

/// Where the focus is, and where it goes by itself.
namespace fiscalon {

/// Whether a control is the active one of its form: inside a `LostFocus` the one that took the focus.
bool FocusIsOn(const Control& control);

/// Where the focus goes when a form is activated: to a control that is enabled and visible.
void FocusIfAble(Control& control);

/// Moves the focus on when a field holds as many characters as it takes, blanks around them not counted, and the next
/// control is enabled.
void MoveOnWhenFull(const TextField& field, Control& next);

/// That, with resume-next: what a field's `Change` does.
void MoveOn(const TextField& field, const Asked<Control*>& next);
/// As the whole handler of a field's `Change`.
Handler OnFull(const TextField& field, Asked<Control*> next);

}  // namespace fiscalon
