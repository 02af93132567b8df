#pragma once

#include <array>
#include <string_view>

#include "core/launch.h"
#include "core/screen.h"
#include "core/session.h"

/// The properties that launches set on forms, for the rows of a launch table.
namespace fiscalon {

// clang-format off
inline constexpr LaunchProperty kCompName{"CompName", [](const Levyra& from, std::string_view, Screen& to) { to.CompName(from.CompName()); }};
inline constexpr LaunchProperty kPaidAmount{"PaidAmount", [](const Levyra& from, std::string_view, Screen& to) { to.PaidAmount(from.PaidAmount()); }};
inline constexpr LaunchProperty kPaidDate{"PaidDate", [](const Levyra& from, std::string_view, Screen& to) { to.PaidDate(from.PaidDate()); }};
inline constexpr LaunchProperty kEnterName{"EnterName", [](const Levyra& from, std::string_view, Screen& to) { to.EnterName(from.EnterName()); }};
inline constexpr LaunchProperty kEnterTitle{"EnterTitle", [](const Levyra& from, std::string_view, Screen& to) { to.EnterTitle(from.EnterTitle()); }};
inline constexpr LaunchProperty kGovFilename{"GovFilename", [](const Levyra& from, std::string_view, Screen& to) { to.GovFilename(from.GovFilename()); }};
inline constexpr LaunchProperty kSeqNumber{"SeqNumber", [](const Levyra& from, std::string_view, Screen& to) { to.SeqNumber(from.SeqNumber()); }};
inline constexpr LaunchProperty kAPHoldFlg{"APHoldFlg", [](const Levyra& from, std::string_view, Screen& to) { to.APHoldFlg(from.APHoldFlg()); }};
inline constexpr LaunchProperty kWriteFile{"WriteFile", [](const Levyra& from, std::string_view, Screen& to) { to.WriteFile(from.WriteFile()); }};
inline constexpr LaunchProperty kCompCode{"CompCode", [](const Levyra& from, std::string_view, Screen& to) { to.CompCode(from.CompCode()); }};
// clang-format on

/// What every form receives, in the order of most of them.
inline constexpr std::array kCommonOrder = {kCompName,    kPaidAmount, kPaidDate,  kEnterName, kEnterTitle,
                                            kGovFilename, kSeqNumber,  kAPHoldFlg, kWriteFile};

}  // namespace fiscalon
