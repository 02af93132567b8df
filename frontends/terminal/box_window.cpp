#include "frontends/terminal/box_window.h"

#include <algorithm>
#include <array>

namespace fiscalon::terminal {
namespace {

constexpr std::array kAnswers = {MessageAnswer::Ok, MessageAnswer::Cancel, MessageAnswer::Yes, MessageAnswer::No};

struct StyleRow {
  MessageStyle style;
  std::string_view icon;
};
constexpr std::array kIcons = {
    StyleRow{MessageStyle::Plain, ""},          StyleRow{MessageStyle::Critical, "(X)"},
    StyleRow{MessageStyle::Question, "(?)"},    StyleRow{MessageStyle::Exclamation, "(!)"},
    StyleRow{MessageStyle::Information, "(i)"},
};

constexpr int kBeforeBoxTitle = 3;
constexpr int kBoxAround = 2;
constexpr int kIcon = 4;
constexpr int kBetweenAnswers = 2;
constexpr std::string_view kDefaultMark = "><";

std::string CaptionOf(MessageAnswer answer, const Language& language) {
  return WithoutAccessMarks(ButtonCaption(answer, language));
}

std::string_view IconOf(MessageStyle style) {
  return std::find_if(kIcons.begin(), kIcons.end(), [&](const StyleRow& row) { return row.style == style; })->icon;
}

/// "[ Yes ]", with a mark at either side of the default one.
int WidthOf(MessageAnswer answer, const Language& language) {
  return static_cast<int>(CaptionOf(answer, language).size()) + 4;
}

}  // namespace

BoxWindow::BoxWindow(const BoxRequest& box, const std::string& untitled)
    : box_(box), title_(box.title.empty() ? untitled : box.title) {
  for (const MessageAnswer answer : kAnswers) {
    if (!box_.Offers(answer))
      continue;
    if (answer == box_.DefaultAnswer())
      focused_ = choices_.size();
    choices_.push_back({.answer = answer});
  }
}

void BoxWindow::LayOut(Size screen) {
  constexpr int kWidestText = 60;
  const int icon = IconOf(box_.style).empty() ? 0 : kIcon;
  const int room = std::min(screen.width - 2 * kBoxAround - icon, kWidestText);
  lines_ = Wrapped(box_.text, room - 1);
  int widest = 0;
  for (const WrappedLine& line : lines_) widest = std::max(widest, static_cast<int>(line.text.size()));
  int buttons = -kBetweenAnswers;
  for (const Choice& choice : choices_) buttons += WidthOf(choice.answer, box_.language) + kBetweenAnswers;
  // One cell more than the text says how each line ends.
  const int title = static_cast<int>(title_.size()) + 2 * kBeforeBoxTitle - 2 * kBoxAround;
  const int inner = std::min(std::max({icon + widest + 1, buttons, title}), screen.width - 2 * kBoxAround);
  // Edges, a blank line and the buttons.
  constexpr int kLinesAround = 4;
  const int height = std::min(static_cast<int>(lines_.size()), std::max(screen.height - 1 - kLinesAround, 1));
  window_ = {.width = inner + 2 * kBoxAround, .height = height + kLinesAround};
  window_.x = (screen.width - window_.width) / 2;
  window_.y = std::max((screen.height - window_.height) / 2, 0);
  text_ = {.x = window_.x + kBoxAround + icon, .y = window_.y + 1, .width = widest + 1, .height = height};
  first_ = std::clamp(first_, 0, static_cast<int>(lines_.size()) - height);
  int x = window_.x + (window_.width - buttons) / 2;
  for (Choice& choice : choices_) {
    choice.place = {.x = x, .y = window_.Bottom() - 2, .width = WidthOf(choice.answer, box_.language), .height = 1};
    x += choice.place.width + kBetweenAnswers;
  }
}

void BoxWindow::Draw(Screen& screen) {
  LayOut(screen.Extent());
  screen.Fill(window_, Cell{});
  screen.Box(window_, {.bold = true});
  const auto room = static_cast<size_t>(std::max(window_.width - 2 * kBeforeBoxTitle, 0));
  const std::string title = title_.substr(0, room);
  screen.Put({window_.x + kBeforeBoxTitle - 1, window_.y}, Cell{});
  screen.Put({window_.x + kBeforeBoxTitle, window_.y}, title, {.bold = true, .underline = true});
  screen.Put({window_.x + kBeforeBoxTitle + static_cast<int>(title.size()), window_.y}, Cell{});
  const bool grave = box_.style == MessageStyle::Critical || box_.style == MessageStyle::Exclamation;
  screen.Put({window_.x + kBoxAround, window_.y + 1}, IconOf(box_.style),
             {.bold = true, .ink = grave ? Ink::Alarm : Ink::Accent});
  const auto from = lines_.begin() + first_;
  PutWrapped(screen, {text_.x, text_.y}, {from, from + text_.height}, text_.width, {});
  if (first_ > 0)
    screen.Put({window_.Right() - 1, text_.y}, {.character = U'\u25B2'});
  if (first_ + text_.height < static_cast<int>(lines_.size()))
    screen.Put({window_.Right() - 1, text_.Bottom() - 1}, {.character = U'\u25BC'});
  for (size_t i = 0; i < choices_.size(); ++i) {
    const Rect& place = choices_[i].place;
    const bool isDefault = choices_[i].answer == box_.DefaultAnswer();
    const Style style = {.bold = i == focused_, .reverse = i == focused_};
    screen.Fill(place, {.style = style});
    screen.Put({place.x, place.y}, "[", style);
    screen.Put({place.Right() - 1, place.y}, "]", style);
    if (isDefault) {
      screen.Put({place.x + 1, place.y}, kDefaultMark.substr(0, 1), style);
      screen.Put({place.Right() - 2, place.y}, kDefaultMark.substr(1), style);
    }
    Style letter = style;
    letter.underline = true;
    const std::string caption = CaptionOf(choices_[i].answer, box_.language);
    screen.Put({place.x + 2, place.y}, caption, style);
    screen.Put({place.x + 2, place.y}, caption.substr(0, 1), letter);
    if (i == focused_)
      screen.Cursor(Point{place.x + 2, place.y});
  }
}

void BoxWindow::Take(const Input& input) {
  if (const auto* stroke = std::get_if<KeyStroke>(&input))
    return TakeKey(*stroke);
  const auto* mouse = std::get_if<MouseInput>(&input);
  if (mouse == nullptr)
    return;
  if (mouse->what == MouseInput::What::WheelUp || mouse->what == MouseInput::What::WheelDown)
    first_ += mouse->what == MouseInput::What::WheelUp ? -1 : 1;
  if (mouse->what != MouseInput::What::Press)
    return;
  for (const Choice& choice : choices_)
    if (choice.place.Holds(mouse->at))
      answer_ = choice.answer;
}

void BoxWindow::TakeKey(const KeyStroke& stroke) {
  if ((stroke.shift & shift_state::kControl) != 0)
    return;
  switch (stroke.keyCode) {
    case key::kTab:
      return GoOn(stroke.shift == shift_state::kShift ? -1 : 1);
    case key::kLeft:
      return GoOn(-1);
    case key::kRight:
      return GoOn(1);
    case key::kUp:
      --first_;
      return;
    case key::kDown:
      ++first_;
      return;
    case key::kEnter:
    case key::kSpace:
      answer_ = choices_[focused_].answer;
      return;
    case key::kEscape:
      answer_ = box_.ClosedAnswer();
      return;
    default:
      for (const Choice& choice : choices_)
        if (Capital(CaptionOf(choice.answer, box_.language).front()) == stroke.keyCode)
          answer_ = choice.answer;
  }
}

void BoxWindow::GoOn(int step) {
  const auto count = static_cast<int>(choices_.size());
  focused_ = static_cast<size_t>((static_cast<int>(focused_) + step + count) % count);
}

BoxRequest BoxWindow::Read(const Screen& seen) const {
  BoxRequest shown;
  int length = 0;
  const Point title = {window_.x + kBeforeBoxTitle, window_.y};
  while (seen.At({title.x + length, title.y}).style.underline) ++length;
  shown.title = seen.Text(title, length);
  const std::string icon = seen.Text({window_.x + kBoxAround, window_.y + 1}, kIcon - 1);
  for (const StyleRow& row : kIcons)
    if (!row.icon.empty() && icon == row.icon && text_.x > window_.x + kBoxAround)
      shown.style = row.style;
  shown.text = ReadWrapped(seen, text_);
  bool offersYes = false;
  bool offersCancel = false;
  for (size_t i = 0; i < choices_.size(); ++i) {
    const Rect& place = choices_[i].place;
    const std::string button = seen.Text({place.x, place.y}, place.width);
    const auto reads = [&](MessageAnswer answer) {
      return button.find(CaptionOf(answer, box_.language)) != std::string::npos;
    };
    offersYes = offersYes || reads(MessageAnswer::Yes);
    offersCancel = offersCancel || reads(MessageAnswer::Cancel);
    if (button[1] == kDefaultMark.front() && i > 0)
      shown.defaultButton = DefaultButton::Second;
  }
  shown.buttons = offersYes ? MessageButtons::YesNo : offersCancel ? MessageButtons::OkCancel : MessageButtons::Ok;
  return shown;
}

Point BoxWindow::PlaceOf(MessageAnswer answer) const {
  for (const Choice& choice : choices_)
    if (choice.answer == answer)
      return {choice.place.x + 2, choice.place.y};
  return {};
}

}  // namespace fiscalon::terminal
