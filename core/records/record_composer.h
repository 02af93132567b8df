#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/records/field_values.h"
#include "core/records/record_layout.h"

/// Puts records together. Callers say what goes into a field; the tables of record_layout know where it
/// lies and how it is filled. A record comes without its quotes.
namespace fiscalon {

/// The fields of a "T" record. A member left out is blank. Dates stand as they are given.
template <typename Text>
struct BasicGovernmentFields {
  Text periodStartDate = {};
  Text periodEndDate = {};
  Text periodDueDate = {};
  Text filler1 = {};
  Text contactName = {};
  Text contactTitle = {};
  Text filler2 = {};
};
using GovernmentFields = BasicGovernmentFields<std::string>;

/// One slot of an "F" record. Blanks fill a value up to its columns; a longer one is not cut, and what
/// stands behind it moves to the right.
template <typename Text>
struct BasicFreeFormatSlot {
  Text fieldNum = {};
  Text fieldValue = {};
};
using FreeFormatSlot = BasicFreeFormatSlot<std::string>;

/// One invoice of an "R" row, each text at its width. The same three texts are an
/// invoice's `PC4` where the records go to a collection.
struct InvoiceEntry {
  std::string date = {};
  std::string amount = {};
  std::string number = {};
};

/// One entry of an "I" row, each text at its width.
struct StatementEntry {
  std::string item1 = {};
  std::string amount = {};
  std::string item2 = {};
};

/// Error 5 "Invalid procedure call or argument" where the trimmed name or the trimmed title is longer than its columns:
/// they are never cut.
std::string ComposeGovernmentFormat(std::string_view seqNumber, const GovernmentFields& fields);

/// One "F" record of up to four slots; slots that are left out are blank, number and value.
std::string ComposeFreeFormat(std::string_view seqNumber, std::span<const FreeFormatSlot> slots);
std::string ComposeFreeFormat(std::string_view seqNumber, std::initializer_list<FreeFormatSlot> slots);

/// As many "F" records as the slots need, four to a record; none for no slot.
std::vector<std::string> ComposeFreeFormats(std::string_view seqNumber, std::span<const FreeFormatSlot> slots);
std::vector<std::string> ComposeFreeFormats(std::string_view seqNumber, std::initializer_list<FreeFormatSlot> slots);

/// An "F" record of one to three slots with the body of a "G" record between them and its end: 312 characters. One
/// collection output joins the two like this, and its readers expect it. Error 5 for another number of slots, and for
/// trimmed details longer than their columns.
std::string ComposeFreeFormatWithDetails(std::string_view seqNumber, std::span<const FreeFormatSlot> slots,
                                         std::string_view amount, std::string_view details);

/// `amount` is a value of cents, at its width. Error 5 where the trimmed details are longer than their columns.
std::string ComposeGenericDetails(std::string_view seqNumber, std::string_view amount, std::string_view details);

/// Error 5 where the line is longer than 70 characters.
std::string ComposePrintableLine(std::string_view seqNumber, std::string_view line);

/// An invoice's entry from the texts of the invoice: date and number trimmed and cut or filled to their width,
/// the amount in cents, with a blank or a minus sign in front. `amount` is dollars with "." as the point.
InvoiceEntry MakeInvoiceEntry(std::string_view date, std::string_view amount, std::string_view number);

/// The same for an "I" row, whose amount has no column for a sign.
StatementEntry MakeStatementEntry(std::string_view item1, std::string_view amount, std::string_view item2);

/// One "R" row of up to two invoices, one "I" row of up to three entries; what is left out is blank.
std::string ComposeInvoiceRow(std::string_view seqNumber, std::span<const InvoiceEntry> entries);
std::string ComposeStatementRow(std::string_view seqNumber, std::span<const StatementEntry> entries);

/// A record as a line of the record file: in double quotes, which are not doubled inside, then CR LF.
std::string QuotedLine(std::string_view record);

}  // namespace fiscalon
