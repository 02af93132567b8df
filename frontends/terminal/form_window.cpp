#include "frontends/terminal/form_window.h"

#include <algorithm>
#include <utility>

#include "core/forms/button.h"
#include "core/forms/form_misuse.h"

namespace fiscalon::terminal {
namespace {

/// The edge and a blank, at either side.
constexpr int kAround = 2;
constexpr int kBetweenButtons = 2;
constexpr std::string_view kCloseMark = "[x]";

/// What is hidden makes no room.
std::vector<LaidOutGroup> VisibleOf(const std::vector<LaidOutGroup>& groups) {
  const auto hide = [](Control*& control) {
    if (control != nullptr && !control->VisibleInFrames())
      control = nullptr;
    return control == nullptr;
  };
  std::vector<LaidOutGroup> visible = groups;
  for (LaidOutGroup& group : visible) {
    hide(group.heading);
    std::erase_if(group.rows, [&](LaidOutRow& row) {
      bool empty = true;
      for (LaidOutCell& cell : row)
        for (Control** control : {&cell.caption, &cell.field, &cell.hint}) empty = hide(*control) && empty;
      return empty;
    });
  }
  std::erase_if(visible, [](const LaidOutGroup& group) { return group.heading == nullptr && group.rows.empty(); });
  return visible;
}

}  // namespace

FormWindow::FormWindow(Form& form, ActWatcher* watcher) : form_(form), acts_(form, watcher), groups_(LaidOut(form)) {
  for (Control* control : form_.Controls()) views_[control] = MakeView(*control, acts_);
  for (const Control* control : StandingOut(form_)) ViewOf(*control).StandOut();
  for (const LaidOutGroup& group : groups_)
    for (const LaidOutRow& row : group.rows) {
      const Control* caption = nullptr;
      for (const LaidOutCell& cell : row) {
        caption = cell.caption != nullptr ? cell.caption : caption;
        if (cell.field != nullptr && caption != nullptr)
          captions_[cell.field] = caption;
      }
    }
  form_.Observe(this);
}

FormWindow::~FormWindow() {
  form_.Observe(nullptr);
}

void FormWindow::FocusMoved(const Control& /*control*/, FocusBy by) {
  acts_.FocusMoved(by);
}

void FormWindow::HandlerRuns(std::string_view object, std::string_view event) {
  if (onHandler)
    onHandler(object, event);
}

std::optional<Rect> FormWindow::PlaceOf(const Control& control) const {
  if (const auto button = buttons_.find(&control); button != buttons_.end())
    return button->second;
  const auto placed = layout_.Places().find(&control);
  if (placed == layout_.Places().end())
    return std::nullopt;
  const Rect place = placed->second.Moved(body_.x - scrolled_.x, body_.y - scrolled_.y);
  const bool seen =
      place.Right() > body_.x && place.x < body_.Right() && place.Bottom() > body_.y && place.y < body_.Bottom();
  return seen ? std::optional(place) : std::nullopt;
}

const Control* FormWindow::ControlAt(Point at) const {
  for (const Control* control : form_.Controls()) {
    const auto place = PlaceOf(*control);
    const bool within = IsButton(*control) || body_.Holds(at);
    if (place && within && place->Holds(at) && control->TakesKeys())
      return control;
  }
  return nullptr;
}

Control* FormWindow::PressableAt(Point at) const {
  const Control* found = ControlAt(at);
  return found == nullptr ? nullptr : &ViewOf(*found).Model();
}

ControlView* FormWindow::FocusedView() const {
  return form_.ActiveControl() == nullptr ? nullptr : &ViewOf(*form_.ActiveControl());
}

ControlView* FormWindow::OpenView() const {
  ControlView* const view = FocusedView();
  return view != nullptr && view->Over() ? view : nullptr;
}

void FormWindow::PlaceButtons(int room) {
  buttons_.clear();
  Point at;
  for (const Button* button : form_.FormLayout().buttons) {
    if (!button->VisibleInFrames())
      continue;
    const Size size = ViewOf(*button).Wanted(room, Grow::No);
    if (at.x > 0 && at.x + size.width > room)
      at = {0, at.y + 1};
    buttons_[button] = {.x = at.x, .y = at.y, .width = size.width, .height = 1};
    at.x += size.width + kBetweenButtons;
    buttonRow_ = {.width = std::max(at.y == 0 ? 0 : buttonRow_.width, at.x - kBetweenButtons), .height = at.y + 1};
  }
  if (buttons_.empty())
    buttonRow_ = {};
}

void FormWindow::LayOut(Size screen) {
  const int room = screen.width - 2 * kAround;
  PlaceButtons(room);
  // Edges, the line over the buttons, and the status below all.
  const int around = 3 + buttonRow_.height + 1;
  const auto wantedBy = [&](const Control& control, int own, Grow grow) { return ViewOf(control).Wanted(own, grow); };
  const Size available = {.width = room, .height = screen.height - around};
  const auto groups = VisibleOf(groups_);
  for (const auto& [control, view] : views_) view->TakeMoreRows(0);
  layout_ = CellLayout(groups, wantedBy, available);
  // Lists take the height that is left.
  if (const int left = available.height - layout_.Extent().height; left > 0) {
    for (const auto& [control, view] : views_) view->TakeMoreRows(left);
    if (CellLayout longer(groups, wantedBy, available); longer.Extent().height <= available.height)
      layout_ = std::move(longer);
    else
      for (const auto& [control, view] : views_) view->TakeMoreRows(0);
  }
  const int title = static_cast<int>(form_.ShownCaption().size()) + kBeforeTitle + kBehindCloseMark + 3;
  const int width = std::max({layout_.Extent().width, buttonRow_.width, title - 2 * kAround});
  body_.width = std::min(width, room);
  body_.height = std::min(layout_.Extent().height, screen.height - around);
  window_.width = body_.width + 2 * kAround;
  window_.height = body_.height + around - 1;
  window_.x = (screen.width - window_.width) / 2;
  window_.y = (screen.height - 1 - window_.height) / 2;
  body_.x = window_.x + kAround;
  body_.y = window_.y + 1;
  for (auto& [button, place] : buttons_) place = place.Moved(body_.x, body_.Bottom() + 1);
}

std::optional<Rect> FormWindow::PlaceToSee(const Control& control) const {
  const auto& places = layout_.Places();
  const auto placed = places.find(&control);
  if (placed == places.end())
    return std::nullopt;
  Rect whole = placed->second;
  const auto caption = captions_.find(&control);
  if (caption == captions_.end() || !places.contains(caption->second))
    return whole;
  const Rect& read = places.at(caption->second);
  const int right = std::max(whole.Right(), read.Right());
  const int bottom = std::max(whole.Bottom(), read.Bottom());
  whole.x = std::min(whole.x, read.x);
  whole.y = std::min(whole.y, read.y);
  whole.width = right - whole.x;
  whole.height = bottom - whole.y;
  return whole;
}

void FormWindow::FollowFocus() {
  const Size extent = layout_.Extent();
  const auto bring = [](int& first, int seen, int from, int to) { first = std::min(std::max(first, to - seen), from); };
  const Control* const active = form_.ActiveControl();
  if (active != nullptr && layout_.Places().contains(active) && !looksElsewhere_) {
    const Rect& place = layout_.Places().at(active);
    // Of what is larger than the body rather the control itself, and of that the cursor.
    const Point at = FocusedView()->Over() ? Point{place.x, place.y} : FocusedView()->CursorIn(place);
    const Rect cursor = {.x = at.x, .y = at.y, .width = 1, .height = 1};
    for (const Rect& wanted : {*PlaceToSee(*active), place, cursor}) {
      bring(scrolled_.y, body_.height, wanted.y, wanted.Bottom());
      bring(scrolled_.x, body_.width, wanted.x, wanted.Right());
    }
  }
  scrolled_.y = std::clamp(scrolled_.y, 0, std::max(extent.height - body_.height, 0));
  scrolled_.x = std::clamp(scrolled_.x, 0, std::max(extent.width - body_.width, 0));
}

void FormWindow::Draw(Screen& screen) {
  // After the show no control is read: it would load the form again.
  if (!form_.IsUp())
    return;
  LayOut(screen.Extent());
  FollowFocus();
  screen.Cursor(std::nullopt);
  screen.Fill({.width = screen.Extent().width, .height = screen.Extent().height}, Cell{});
  DrawEdges(screen);
  DrawBody(screen);
  DrawStatus(screen);
  if (ControlView* const view = FocusedView()) {
    const auto place = PlaceOf(view->Model());
    if (!place)
      return;
    view->DrawOver(screen, *place);
    const Point cursor = view->CursorIn(*place);
    if (view->Over() || IsButton(view->Model()) || body_.Holds(cursor))
      screen.Cursor(cursor);
  }
}

void FormWindow::DrawEdges(Screen& screen) {
  screen.Box(window_);
  const auto room = static_cast<size_t>(std::max(window_.width - kBeforeTitle - kBehindCloseMark - 3, 0));
  const std::string title = form_.ShownCaption().substr(0, room);
  const Point begin = TitleBegins();
  if (!title.empty())
    screen.Put({begin.x - 1, begin.y}, " ");
  screen.Put(begin, title, {.bold = true});
  if (!title.empty())
    screen.Put({begin.x + static_cast<int>(title.size()), begin.y}, " ");
  screen.Put({CloseMark().x - 1, CloseMark().y}, kCloseMark);
  if (buttons_.empty())
    return;
  const int line = body_.Bottom();
  screen.Line({window_.x, line}, window_.width);
  screen.Put({window_.x, line}, {.character = U'\u251C'});
  screen.Put({window_.Right() - 1, line}, {.character = U'\u2524'});
}

void FormWindow::DrawBody(Screen& screen) {
  // What lies beyond the body's edges is told there.
  const int right = window_.Right() - 1;
  const Size extent = layout_.Extent();
  if (scrolled_.y > 0)
    screen.Put({right, body_.y}, {.character = U'\u25B2'});
  if (scrolled_.y + body_.height < extent.height)
    screen.Put({right, body_.Bottom() - 1}, {.character = U'\u25BC'});
  if (scrolled_.x > 0)
    screen.Put({window_.x, body_.y}, {.character = U'\u00AB'});
  if (scrolled_.x + body_.width < extent.width)
    screen.Put({right, body_.y + body_.height / 2}, {.character = U'\u00BB'});

  const Control* const active = form_.ActiveControl();
  const auto draw = [&](const Control& control) {
    if (const auto place = PlaceOf(control))
      ViewOf(control).Draw(screen, *place, &control == active ? Focused::Yes : Focused::No);
  };
  screen.OpenOnly(body_);
  // Frames lie behind what stands in them.
  for (const bool frames : {true, false})
    for (const auto& [control, place] : layout_.Places())
      if ((control->Kind() == ControlKind::Frame) == frames)
        draw(*control);
  screen.OpenAll();
  for (const auto& [button, place] : buttons_) draw(*button);
}

std::string FormWindow::KeysToPress(int room) const {
  const Control* const active = form_.ActiveControl();
  std::vector<Wording> keys;
  if (active != nullptr && active->Kind() == ControlKind::DropDownList)
    keys = {"Up, Down step", "F4 list"};
  else if (active != nullptr && active->Kind() == ControlKind::OptionButton)
    keys = {"Up, Down choose"};
  else if (active != nullptr && active->Kind() == ControlKind::CheckBox)
    keys = {"Space tick"};
  else if (active != nullptr && active->Kind() == ControlKind::Button)
    keys = {"Enter press"};
  keys.insert(keys.end(), {"Tab next", "Shift+Tab back"});
  if (layout_.Extent().height > body_.height)
    keys.emplace_back("PgUp, PgDn look");
  keys.emplace_back("Ctrl+Q close");
  std::string line;
  for (const Wording& key : keys) {
    const std::string words = key.In(form_.ShownIn());
    if (static_cast<int>(line.size() + words.size()) + 2 <= room)
      line.append(line.empty() ? "" : "  ").append(words);
  }
  return line;
}

void FormWindow::DrawStatus(Screen& screen) {
  const int y = screen.Extent().height - 1;
  const std::string status = StatusOf(form_);
  const Style style = status.empty() ? Style{.ink = Ink::Faint} : Style{.bold = true, .ink = Ink::Alarm};
  screen.Put({0, y}, status.empty() ? KeysToPress(screen.Extent().width) : status, style);
}

void FormWindow::Take(const Input& input) {
  if (!form_.IsUp())
    return;
  if (const auto* mouse = std::get_if<MouseInput>(&input))
    return TakeMouse(*mouse);
  if (const auto* paste = std::get_if<PasteInput>(&input)) {
    looksElsewhere_ = false;
    if (ControlView* const view = FocusedView())
      view->Paste(paste->text);
    return;
  }
  TakeKey(std::get<KeyStroke>(input));
}

void FormWindow::TakeKey(const KeyStroke& stroke) {
  const bool closes = stroke.keyCode == 'Q' && stroke.shift == shift_state::kControl;
  if (closes)
    return acts_.Close(CloseReason::CloseBox);
  ControlView* const view = FocusedView();
  if (view != nullptr && view->TakesKey(stroke)) {
    looksElsewhere_ = false;
    return;
  }
  if (ScrollsByKey(stroke))
    return;
  looksElsewhere_ = false;
  const KeyOutcome outcome = acts_.Key(stroke);
  if (outcome.editing && form_.IsUp() && view != nullptr)
    view->Edit(stroke, outcome);
}

bool FormWindow::ScrollsByKey(const KeyStroke& stroke) {
  const bool pages = stroke.keyCode == key::kPageUp || stroke.keyCode == key::kPageDown;
  if (!pages || stroke.shift != shift_state::kNone || layout_.Extent().height <= body_.height)
    return false;
  ScrollBy(stroke.keyCode == key::kPageUp ? -body_.height : body_.height);
  return true;
}

void FormWindow::ScrollBy(int rows) {
  scrolled_.y = std::clamp(scrolled_.y + rows, 0, std::max(layout_.Extent().height - body_.height, 0));
  looksElsewhere_ = true;
}

void FormWindow::TakeMouse(const MouseInput& mouse) {
  constexpr int kRowsOfWheel = 3;
  switch (mouse.what) {
    case MouseInput::What::WheelUp:
      return TurnWheel(mouse.at, -kRowsOfWheel);
    case MouseInput::What::WheelDown:
      return TurnWheel(mouse.at, kRowsOfWheel);
    case MouseInput::What::Press:
      return PressMouse(mouse.at);
    case MouseInput::What::Drag:
    case MouseInput::What::Release:
      break;
  }
  const bool isRelease = mouse.what == MouseInput::What::Release;
  Control* const pressed = isRelease ? std::exchange(pressed_, nullptr) : pressed_;
  const auto place = pressed == nullptr ? std::nullopt : PlaceOf(*pressed);
  if (!place)
    return;
  if (isRelease)
    ViewOf(*pressed).Release(mouse.at, *place);
  else
    ViewOf(*pressed).Drag(mouse.at, *place);
}

void FormWindow::PressMouse(Point at) {
  if (ControlView* const open = OpenView()) {
    if (open->Over()->Holds(at))
      return open->PressOver(at);
    return open->CloseOver();
  }
  const Point close = CloseMark();
  if (Rect{.x = close.x - 1, .y = close.y, .width = static_cast<int>(kCloseMark.size()), .height = 1}.Holds(at))
    return acts_.Close(CloseReason::CloseBox);
  pressed_ = PressableAt(at);
  if (pressed_ == nullptr)
    return;
  // The place is that of the moment at which the user saw it, whatever a check changes.
  const Rect place = *PlaceOf(*pressed_);
  looksElsewhere_ = false;
  ViewOf(*pressed_).Press(at, place);
}

void FormWindow::TurnWheel(Point at, int rows) {
  if (ControlView* const open = OpenView()) {
    open->TurnWheel(rows);
    return;
  }
  const Control* const there = ControlAt(at);
  if (there == nullptr || !ViewOf(*there).TurnWheel(rows))
    ScrollBy(rows);
}

}  // namespace fiscalon::terminal
