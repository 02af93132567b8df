#pragma once

#include "tools/fiscalon/shown_record.h"

namespace fiscalon {

/// One field with what its text means. What is wrong with the text is added to the problems.
ShownField UnderstandField(std::string_view record, const RecordField& field, const LaunchRow* screen,
                           std::vector<Note>& problems);

}  // namespace fiscalon
