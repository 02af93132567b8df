#include "tools/paying/payment_doubts.h"

#include "core/platform/code_page.h"
#include "core/records/record_layout.h"
#include "core/values/text.h"
#include "tools/paying/record_place.h"
#include "tools/reading/utf8_words.h"
#include "tools/reading/visible_text.h"

namespace fiscalon {
namespace {

constexpr size_t kSequenceCharacters = FieldNamed(kRecordHead, "SeqNumber").Width();
constexpr size_t kNameCharacters = FieldNamed(kGovernmentLayout, "ContactName").Width();
constexpr size_t kTitleCharacters = FieldNamed(kGovernmentLayout, "ContactTitle").Width();

std::string OnSequence(std::string_view text) {
  static_assert(kSequenceCharacters == 4, "the words say so too");
  const size_t length = FromUtf8(text).size();
  if (length == kSequenceCharacters)
    return {};
  return Utf8Words(length == 1 ? "{1} character instead of four, which shifts the columns of all records."
                               : "{1} characters instead of four, which shifts the columns of all records.",
                   {std::to_string(length)});
}

std::string OnNoAmount(std::string_view cents) {
  return AreBlanks(cents) ? Utf8Words("nothing, which screens take for $0.00.") : "";
}

std::string OnCents(std::string_view text) {
  if (AreBlanks(text) || !DollarsOf(text).empty())
    return {};
  return Utf8Words("\"{1}\" is no amount in cents: up to 15 digits and nothing else, such as 12345.",
                   {VisibleUtf8(text)});
}

std::string OnDollars(std::string_view text) {
  if (AreBlanks(text) || !CentsOf(text).empty())
    return {};
  return Utf8Words("\"{1}\" is no amount in dollars: digits, and at most two of them behind a point, such as 123.45.",
                   {VisibleUtf8(text)});
}

std::string OnDate(std::string_view text) {
  if (!HostDateOf(text).empty())
    return {};
  return Utf8Words("\"{1}\" is no date: year, month and day, such as 2026-06-15.", {VisibleUtf8(text)});
}

template <size_t kColumns>
std::string OnLength(std::string_view text) {
  const size_t length = Trim(FromUtf8(text)).size();
  if (length <= kColumns)
    return {};
  return Utf8Words("{1} characters, and a record has room for {2}: shorten it.",
                   {std::to_string(length), std::to_string(kColumns)});
}

/// A character that has no place in the code page is lost on the way to the library.
std::string OnLostCharacters(std::string_view text) {
  const std::string kept = ToUtf8(FromUtf8(text));
  if (kept == text)
    return {};
  return Utf8Words(R"("{1}" becomes "{2}": forms and records know Western European letters alone.)",
                   {VisibleUtf8(text), VisibleUtf8(kept)});
}

struct Judge {
  PaymentEntry entry = {};
  Doubt::Weight weight = {};
  std::string Payment::*text = nullptr;
  /// What speaks against the text; empty where nothing does.
  std::string (*about)(std::string_view text) = nullptr;
};

constexpr auto kTold = Doubt::Weight::Told;
constexpr auto kStops = Doubt::Weight::Stops;

constexpr Judge kJudges[] = {
    {PaymentEntry::Sequence, kTold, &Payment::sequence, OnSequence},
    {PaymentEntry::BillerName, kTold, &Payment::billerName, OnLostCharacters},
    {PaymentEntry::Cents, kTold, &Payment::cents, OnNoAmount},
    {PaymentEntry::Cents, kStops, &Payment::cents, OnCents},
    {PaymentEntry::Dollars, kStops, &Payment::dollars, OnDollars},
    {PaymentEntry::Date, kStops, &Payment::date, OnDate},
    {PaymentEntry::EnteredBy, kTold, &Payment::enteredBy, OnLength<kNameCharacters>},
    {PaymentEntry::EnteredBy, kTold, &Payment::enteredBy, OnLostCharacters},
    {PaymentEntry::Title, kTold, &Payment::title, OnLength<kTitleCharacters>},
    {PaymentEntry::Title, kTold, &Payment::title, OnLostCharacters},
    {PaymentEntry::BusinessName, kTold, &Payment::businessName, OnLostCharacters},
    {PaymentEntry::File, kStops, &Payment::file, WhyNoFileCanBe},
};

bool IsAsked(const Judge& judge, const Payment& payment) {
  return judge.entry != PaymentEntry::File || payment.destination == Payment::Destination::File;
}

}  // namespace

std::vector<Doubt> DoubtsAbout(const Payment& payment) {
  std::vector<Doubt> doubts;
  for (const Judge& judge : kJudges)
    if (std::string text = IsAsked(judge, payment) ? judge.about(payment.*judge.text) : ""; !text.empty())
      doubts.push_back({.entry = judge.entry, .text = std::move(text), .weight = judge.weight});
  return doubts;
}

std::string SentenceOf(const Doubt& doubt) {
  return Utf8Words("{1}: {2}", {Utf8Words(NameOf(doubt.entry)), doubt.text});
}

std::string QuestionAbout(const Payment& payment) {
  if (payment.destination != Payment::Destination::File)
    return {};
  const std::string lost = WhatWouldBeLost(payment.file);
  return lost.empty() ? lost : Utf8Words("{1}\n\nShall the records of this payment take its place?", {lost});
}

}  // namespace fiscalon
