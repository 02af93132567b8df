#pragma once

#include <string>
#include <string_view>

/// The place that a payment's records are to go to, looked at before anybody fills a form for them. Nothing is made,
/// changed or waited for. Names and sentences are UTF-8.
namespace fiscalon {

/// Why no file of that name can be written; empty where nothing speaks against it.
std::string WhyNoFileCanBe(std::string_view name);

/// What a file of that name is that the records would replace, by name, size and beginning: "..." is no record file.
/// Empty where there is none, and where nothing but records is lost.
std::string WhatWouldBeLost(std::string_view name);

}  // namespace fiscalon
