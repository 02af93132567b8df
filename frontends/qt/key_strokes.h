#pragma once

#include <QKeyEvent>
#include <optional>

#include "core/forms/keys.h"

namespace fiscalon::qt {

/// The stroke of a key event; nothing for a key that only changes others, such as Shift.
std::optional<KeyStroke> StrokeOf(const QKeyEvent& event);

/// The other way round, for a played user: the Qt key, its modifiers and the text it makes.
struct QtKey {
  Qt::Key key = Qt::Key_unknown;
  Qt::KeyboardModifiers modifiers = Qt::NoModifier;
  QString text = {};
};
QtKey QtKeyOf(const KeyStroke& stroke);

}  // namespace fiscalon::qt
