#pragma once

#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "core/forms/laid_out.h"
#include "frontends/win32/dialog_fonts.h"

namespace fiscalon::win32 {

/// Where the controls of a form stand, by the form's own layout: groups beneath each other in columns, captions and
/// fields of a column aligned through all its groups, hints beside their fields, buttons at the bottom. What is hidden
/// takes no room. Rectangles only: nothing here has a window.
class DialogLayout {
 public:
  /// How much room a control takes.
  using SizeOf = std::function<SIZE(const Control&)>;

  DialogLayout(const Form& form, const DialogFonts& fonts, SizeOf sizeOf);

  /// Of all that is visible but the buttons of the form, within the body.
  const std::map<const Control*, RECT>& Places() const { return places_; }
  /// Lines that set groups apart where no heading does.
  const std::vector<RECT>& Lines() const { return lines_; }
  SIZE Body() const { return body_; }

  /// The buttons of the form beneath a body of that width, from its lower right corner to the left.
  std::map<const Control*, RECT> Buttons(int width) const;
  SIZE ButtonRow() const;
  /// Between the edge of the window and what stands in it.
  SIZE Margin() const { return {fonts_.X(kMargin), fonts_.Y(kMargin)}; }

 private:
  static constexpr int kMargin = 7;

  /// A part of a row that stands in a column of its own: a caption, and fields with their hints.
  struct Slot {
    const Control* caption = nullptr;
    /// Of the caption; 0 where it stands over the fields too.
    int captionWidth = 0;
    /// The caption has no field: it reaches as far as it must.
    bool isCaptionAlone = false;
    /// The fields begin where captions do.
    bool fromLeft = false;
    bool isTall = false;
    /// What stands side by side, each with the gap before it.
    struct Part {
      const Control* control;
      int gap;
    };
    std::vector<Part> parts = {};
    int partsWidth = 0;
  };
  struct Line {
    std::vector<Slot> slots = {};
    int height = 0;
  };
  struct Block {
    const Control* heading = nullptr;
    const Control* frame = nullptr;
    std::vector<Line> lines = {};
    size_t slots = 0;
    /// By the slot's place in its line.
    std::vector<int> captionWidths = {};
    std::vector<int> fieldWidths = {};
  };
  struct Column {
    std::vector<Block> blocks = {};
    int width = 0;
  };

  Column Measured(const std::vector<LaidOutGroup>& groups, int number) const;
  Block Measured(const LaidOutGroup& group) const;
  Slot Measured(std::vector<LaidOutCell>::const_iterator first, std::vector<LaidOutCell>::const_iterator end) const;
  void AddPart(Slot& slot, const Control* control, int gap) const;
  int HeightOf(const Line& line) const;
  void AlignCaptions(Column& column) const;
  int WidthOf(const Block& block) const;
  int WidthOf(const Column& column) const;
  int XOf(const Block& block, size_t slot) const;
  int Inset(const Block& block) const { return block.frame == nullptr ? 0 : fonts_.X(kInset); }

  /// Places what stands in a column and returns how far down it reaches.
  int Place(const Column& column, int left);
  int PlaceLines(const Block& block, int left, int top, int width);
  void PlaceSlot(const Slot& slot, const Block& block, size_t number, const Line& line, POINT corner, int width);
  int PlaceHeading(const Block& block, int left, int top, bool isFirst);

  SIZE SizeOfVisible(const Control* control) const;

  static constexpr int kInset = 6;

  const Form& form_;
  const DialogFonts& fonts_;
  SizeOf sizeOf_;
  mutable std::map<const Control*, SIZE> sizes_;
  std::map<const Control*, RECT> places_;
  std::vector<RECT> lines_;
  SIZE body_ = {};
};

}  // namespace fiscalon::win32
