#include "core/provinces.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/forms/form.h"

namespace fiscalon {
namespace {

class ListForm final : public Form {
 public:
  ListForm() : Form("ListForm", "") {}
  DropDownList cmbProvince{*this, "cmbProvince", {}};
  const Layout& FormLayout() const override { return layout_; }

 private:
  Layout layout_;
};

TEST(LoadProvinces, ReplacesTheRowsByThirteenCodesInOrder) {
  ListForm form;
  form.cmbProvince.AddItem("Elsewhere");
  form.cmbProvince.ListIndex(0);

  LoadProvinces(form.cmbProvince);

  std::vector<std::string> rows;
  for (int row = 0; row < form.cmbProvince.ListCount(); ++row) rows.push_back(form.cmbProvince.List(row));
  EXPECT_EQ(rows,
            (std::vector<std::string>{"AB", "BC", "MB", "NB", "NL", "NS", "NT", "NU", "ON", "PE", "QC", "SK", "YT"}));
  EXPECT_EQ(form.cmbProvince.ListIndex(), ListControl::kNothingSelected);
}

}  // namespace
}  // namespace fiscalon
