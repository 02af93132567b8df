#include "frontends/qt/caption_views.h"

#include "core/forms/watched_acts.h"
#include "frontends/qt/qt_text.h"

namespace fiscalon::qt {

namespace {

/// In labels and frames an ampersand is one; Qt would take it for the mark of an access key.
QString AsShown(const QString& caption) {
  return QString(caption).replace(u'&', QStringLiteral("&&"));
}

/// The other way round: the caption that is shown so.
QString AsCaption(QString shown) {
  return shown.replace(QStringLiteral("&&"), QStringLiteral("&"));
}

}  // namespace

LabelView::LabelView(Label& label, QWidget& parent, WatchedActs& acts)
    : ControlView(label, *new QLabel(&parent), acts), label_(label), native_(static_cast<QLabel&>(Widget())) {
  native_.setTextFormat(Qt::PlainText);
  if (label.Designed().alignment == Alignment::Right)
    native_.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  if (label.Designed().bold)
    StandOut();
  Restyle();
}

void LabelView::Refresh() {
  ControlView::Refresh();
  // Only a label that belongs to a field reads "&" as a mark.
  const QString caption = ToQt(label_.ShownCaption());
  const QString shown = native_.buddy() == nullptr ? caption : AsShown(caption);
  if (native_.text() != shown)
    native_.setText(shown);
}

ShownControl LabelView::Content() const {
  return {.text = FromQt(native_.buddy() == nullptr ? native_.text() : AsCaption(native_.text()))};
}

void LabelView::Restyle() {
  native_.setFont(Font());
}

FrameView::FrameView(Frame& frame, QWidget& parent, WatchedActs& acts)
    : ControlView(frame, *new QGroupBox(&parent), acts), frame_(frame), native_(static_cast<QGroupBox&>(Widget())) {}

void FrameView::Refresh() {
  ControlView::Refresh();
  const QString shown = AsShown(ToQt(frame_.ShownCaption()));
  if (native_.title() != shown)
    native_.setTitle(shown);
}

ShownControl FrameView::Content() const {
  return {.text = FromQt(AsCaption(native_.title()))};
}

}  // namespace fiscalon::qt
