#include "frontends/terminal/terminal_driver.h"

#include <cstdlib>

#include "core/forms/form.h"
#include "frontends/terminal/form_window.h"
#include "frontends/terminal/key_bytes.h"
#include "frontends/terminal/list_views.h"
#include "frontends/terminal/played_terminal_toolkit.h"

namespace fiscalon::terminal {
namespace {

constexpr Point kBesideEverything = {0, 0};

/// What a control would show that has no place on the screen: it is drawn on one of its own.
ShownControl ReadUnseen(ControlView& view) {
  constexpr int kAnyRoom = 2000;
  const Size size = view.Wanted(kAnyRoom, Grow::Yes);
  const Rect place = {.width = size.width, .height = size.height};
  Screen screen(size);
  view.Draw(screen, place, Focused::No);
  return view.Read(screen, place);
}

}  // namespace

void TerminalDriver::PressKey(const KeyStroke& stroke) {
  toolkit_.Send(BytesOf(stroke));
}

void TerminalDriver::PressAndRelease(Point down, Point up) {
  toolkit_.Send(BytesOf(MouseAct::Press, down));
  toolkit_.Send(BytesOf(MouseAct::Release, up));
}

void TerminalDriver::PressMouse(Control& control) {
  const auto place = window_.PlaceOf(control);
  if (!place)
    return;
  // An edge: a field keeps its caret, a list its row.
  PressAndRelease({place->x, place->y}, kBesideEverything);
  if (form_.IsUp() && window_.ViewOf(control).Over())
    PressKey(*StrokeNamed("Escape"));
}

void TerminalDriver::Click(Control& control) {
  // Which row a click in a list would hit is not for a scenario to know: it chooses rows by their texts.
  if (dynamic_cast<const ListControl*>(&control) != nullptr)
    return PressMouse(control);
  if (const auto place = window_.PlaceOf(control))
    PressAndRelease({place->x, place->y}, {place->x, place->y});
}

void TerminalDriver::Turn(Point at, int rows) {
  for (int turns = std::abs(rows); turns > 0; --turns)
    toolkit_.Send(BytesOf(rows < 0 ? MouseAct::WheelUp : MouseAct::WheelDown, at));
}

void TerminalDriver::Choose(ListControl& list, int row) {
  list.ExpectRow(row);
  const auto place = window_.PlaceOf(list);
  if (!place)
    return;
  const auto& view = dynamic_cast<const AnyListView&>(window_.ViewOf(list));
  const Point begin = {place->x, place->y};
  const bool drops = list.Kind() == ControlKind::DropDownList;
  if (drops)
    PressAndRelease(begin, begin);
  if (!form_.IsUp() || (drops && !view.Over()))
    return;
  if (!view.PlaceOfRow(row, *place))
    Turn(begin, -list.ListCount());
  for (int turns = list.ListCount(); turns > 0 && !view.PlaceOfRow(row, *place); --turns) Turn(begin, 1);
  if (const auto there = view.PlaceOfRow(row, *place))
    PressAndRelease(*there, *there);
}

void TerminalDriver::Paste(std::string_view text) {
  toolkit_.Send(BytesOfPaste(text));
}

void TerminalDriver::CloseWindow(CloseReason reason) {
  if (reason == CloseReason::CloseBox)
    return PressAndRelease(window_.CloseMark(), window_.CloseMark());
  window_.CloseFor(reason);
  toolkit_.Send({});
}

std::string TerminalDriver::Title() {
  const Point begin = window_.TitleBegins();
  int length = 0;
  while (toolkit_.Seen().At({begin.x + length, begin.y}).style.bold) ++length;
  return toolkit_.Seen().Text(begin, length);
}

std::string TerminalDriver::FocusName() {
  const auto cursor = toolkit_.Seen().Cursor();
  const Control* const control = cursor ? window_.ControlAt(*cursor) : nullptr;
  return control == nullptr ? std::string() : control->Name();
}

ShownControl TerminalDriver::Shown(const Control& control) {
  ControlView& view = window_.ViewOf(control);
  if (const auto place = window_.PlaceOf(control))
    return view.Read(toolkit_.Seen(), *place);
  ShownControl shown = ReadUnseen(view);
  // A frame that the layout forgets is no box. It is never seen, and still hides and disables what lies in it.
  shown.visible = control.Kind() == ControlKind::Frame && control.VisibleInFrames();
  return shown;
}

}  // namespace fiscalon::terminal
