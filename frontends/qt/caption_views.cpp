#include "frontends/qt/caption_views.h"

#include "frontends/qt/dialog_acts.h"
#include "frontends/qt/qt_text.h"

namespace fiscalon {

QString PlainCaption(std::string_view caption) {
  std::string plain;
  for (size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && i + 1 < caption.size())
      ++i;
    plain += caption[i];
  }
  return ToQt(plain);
}

LabelView::LabelView(Label& label, QWidget& parent, DialogActs& acts)
    : ControlView(label, *new QLabel(&parent), acts), label_(label), native_(static_cast<QLabel&>(Widget())) {
  native_.setTextFormat(Qt::PlainText);
  if (label.Designed().alignment == Alignment::Right)
    native_.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  Restyle();
}

void LabelView::Refresh() {
  ControlView::Refresh();
  const QString caption = ToQt(label_.Caption());
  if (native_.text() != caption)
    native_.setText(caption);
}

void LabelView::Restyle() {
  native_.setFont(Font());
}

FrameView::FrameView(Frame& frame, QWidget& parent, DialogActs& acts)
    : ControlView(frame, *new QGroupBox(&parent), acts), frame_(frame), native_(static_cast<QGroupBox&>(Widget())) {}

void FrameView::Refresh() {
  ControlView::Refresh();
  const QString caption = ToQt(frame_.Caption());
  if (native_.title() != caption)
    native_.setTitle(caption);
}

}  // namespace fiscalon
