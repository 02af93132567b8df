#pragma once

#include <QWidget>

namespace fiscalon::qt {

/// Makes a widget one that appears to say something: a notification to assistive programs. Before it is shown.
void MakeNotice(QWidget& widget);

/// Shows the notice, and has assistive programs say the words, once: they hear of a notification that appears, and of
/// an alert. Of words that change in a widget they say nothing, and Qt leaves alerts off the bus of Linux.
void Announce(QWidget& notice, const QString& words);

}  // namespace fiscalon::qt
