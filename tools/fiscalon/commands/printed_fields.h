#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "tools/reading/shown_record.h"

namespace fiscalon {

/// The fields of the records of a file in print. Most hold what they held in the last record of their kind: what was
/// printed of them there is copied, and only the others are printed anew.
class PrintedFields {
 public:
  /// What is printed in front of the text of each field.
  using Fronts = std::vector<std::string>;

  /// `make` puts the fronts together. They are the same for all records of a kind whose fields stand where the table of
  /// their kind has them, as nearly all do: for those it is done once.
  explicit PrintedFields(Fronts (*make)(const ShownRecord& record)) : make_(make) {}

  /// Appends the fields of a record, each by `print(out, field, front)`. Among records of a kind that nothing is wrong
  /// with, what that appends goes by the field alone; only these are copied from.
  template <typename Print>
  void Append(std::string& out, const ShownRecord& record, Print&& print) {
    if (!record.FollowsTable())
      return AppendAll(out, record, make_(record), print);
    Last& last = last_[record.kind];
    if (last.fronts.size() != record.fields.size()) {
      last.fronts = make_(record);
      last.fields.resize(last.fronts.size());
    }
    if (record.problems.empty())
      AppendChanged(out, record, last, print);
    else
      AppendAll(out, record, last.fronts, print);
  }

 private:
  struct LastField {
    /// Since which record it has been so.
    uint64_t since = 0;
    size_t printed = 0;
  };
  /// The last record of a kind that nothing was wrong with.
  struct Last {
    Fronts fronts = {};
    std::vector<LastField> fields = {};
    std::string print = {};
  };

  template <typename Print>
  static void AppendAll(std::string& out, const ShownRecord& record, const Fronts& fronts, Print&& print) {
    for (size_t i = 0; i < fronts.size(); ++i) print(out, record.fields[i], fronts[i]);
  }

  template <typename Print>
  static void AppendChanged(std::string& out, const ShownRecord& record, Last& last, Print&& print) {
    const size_t start = out.size();
    bool isChanged = false;
    // In the last print: where the field stands, and what lies before it has been copied or passed over.
    size_t at = 0;
    size_t taken = 0;
    for (size_t i = 0; i < record.fields.size(); ++i) {
      const ShownField& field = record.fields[i];
      LastField& before = last.fields[i];
      const size_t from = at;
      at += before.printed;
      if (field.since != 0 && field.since == before.since)
        continue;
      out.append(last.print, taken, from - taken);
      const size_t begin = out.size();
      print(out, field, last.fronts[i]);
      before = {.since = field.since, .printed = out.size() - begin};
      taken = at;
      isChanged = true;
    }
    out.append(last.print, taken);
    if (isChanged)
      last.print.assign(out, start);
  }

  Fronts (*make_)(const ShownRecord& record);
  std::map<RecordKind, Last> last_;
};

}  // namespace fiscalon
