#pragma once

#include <string>
#include <vector>

#include "core/forms/button.h"
#include "core/forms/form.h"
#include "core/forms/label.h"
#include "core/forms/list_control.h"
#include "tools/reading/shown_record.h"

namespace fiscalon {

/// What has come of a screen: words, and the records taken apart by field, one row each.
class frmDeskResult final : public Form {
  using Self = frmDeskResult;

 public:
  frmDeskResult() : Form("frmDeskResult", "The result") {}

  /// The words are UTF-8.
  void Set(const std::string& words, const std::vector<ShownRecord>& records);

  // clang-format off
  Label   lblWords   {*this, "lblWords",   {.caption = ""}};
  ListBox lstFields  {*this, "lstFields",  {.tabIndex = 0, .fixedPitch = true}};
  Button  cmdClose   {*this, "cmdClose",   {.caption = "&Back to the desk", .tabIndex = 1, .cancel = true}, {.click = On(&Self::cmdClose_Click)}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

 private:
  void Form_Load() override;
  void cmdClose_Click() { Unload(); }

  std::string words_;
  std::vector<std::string> rows_;
  const Layout layout_ = {.groups = {{.rows = {{{{&lblWords}}}, {{{nullptr, &lstFields}}}}}}, .buttons = {&cmdClose}};
};

}  // namespace fiscalon
