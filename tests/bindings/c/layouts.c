/* Prints size and offsets of all structs that hosts share with the library, for the list in layouts.txt. */
#include <stddef.h>
#include <stdio.h>

#include <fiscalon/c.h>

#define STRUCT(type) printf("%s %u\n", #type, (unsigned)sizeof(type))
#define MEMBER(type, member) \
  printf("  %s %u %u\n", #member, (unsigned)offsetof(type, member), (unsigned)sizeof(((type*)0)->member))

int main(void) {
  STRUCT(fiscalon_error);
  MEMBER(fiscalon_error, size);
  MEMBER(fiscalon_error, number);
  MEMBER(fiscalon_error, source);
  MEMBER(fiscalon_error, description);
  STRUCT(fiscalon_text);
  MEMBER(fiscalon_text, data);
  MEMBER(fiscalon_text, size);
  STRUCT(fiscalon_fault);
  MEMBER(fiscalon_fault, size);
  MEMBER(fiscalon_fault, line);
  MEMBER(fiscalon_fault, field);
  MEMBER(fiscalon_fault, name);
  MEMBER(fiscalon_fault, value);
  MEMBER(fiscalon_fault, code);
  MEMBER(fiscalon_fault, message);
  STRUCT(fiscalon_verdict);
  MEMBER(fiscalon_verdict, size);
  MEMBER(fiscalon_verdict, row);
  MEMBER(fiscalon_verdict, line);
  MEMBER(fiscalon_verdict, valid);
  MEMBER(fiscalon_verdict, unused);
  MEMBER(fiscalon_verdict, seq);
  MEMBER(fiscalon_verdict, screen);
  MEMBER(fiscalon_verdict, reason);
  MEMBER(fiscalon_verdict, lines);
  MEMBER(fiscalon_verdict, faults);
  MEMBER(fiscalon_verdict, fault_count);
  STRUCT(fiscalon_batch_counts);
  MEMBER(fiscalon_batch_counts, size);
  MEMBER(fiscalon_batch_counts, payments);
  MEMBER(fiscalon_batch_counts, invalid);
  MEMBER(fiscalon_batch_counts, bytes);
  MEMBER(fiscalon_batch_counts, total_bytes);
  STRUCT(fiscalon_batch);
  MEMBER(fiscalon_batch, size);
  MEMBER(fiscalon_batch, payments_path);
  MEMBER(fiscalon_batch, records_path);
  MEMBER(fiscalon_batch, payments_bytes);
  MEMBER(fiscalon_batch, payments_size);
  MEMBER(fiscalon_batch, records_bytes);
  MEMBER(fiscalon_batch, records_size);
  MEMBER(fiscalon_batch, part);
  MEMBER(fiscalon_batch, parts);
  MEMBER(fiscalon_batch, jobs);
  MEMBER(fiscalon_batch, wants_valid);
  MEMBER(fiscalon_batch, wants_faults);
  MEMBER(fiscalon_batch, wants_lines);
  MEMBER(fiscalon_batch, context);
  MEMBER(fiscalon_batch, on_verdicts);
  MEMBER(fiscalon_batch, on_progress);
  MEMBER(fiscalon_batch, on_problem);
  STRUCT(fiscalon_box);
  MEMBER(fiscalon_box, size);
  MEMBER(fiscalon_box, text);
  MEMBER(fiscalon_box, title);
  MEMBER(fiscalon_box, style);
  MEMBER(fiscalon_box, buttons);
  MEMBER(fiscalon_box, default_answer);
  MEMBER(fiscalon_box, closed_answer);
  STRUCT(fiscalon_scripted_user);
  MEMBER(fiscalon_scripted_user, size);
  MEMBER(fiscalon_scripted_user, context);
  MEMBER(fiscalon_scripted_user, on_form);
  MEMBER(fiscalon_scripted_user, on_box);
  MEMBER(fiscalon_scripted_user, on_beep);
  MEMBER(fiscalon_scripted_user, on_help);
  MEMBER(fiscalon_scripted_user, on_handler);
  STRUCT(fiscalon_control);
  MEMBER(fiscalon_control, size);
  MEMBER(fiscalon_control, name);
  MEMBER(fiscalon_control, kind);
  MEMBER(fiscalon_control, items);
  MEMBER(fiscalon_control, text);
  MEMBER(fiscalon_control, selection);
  MEMBER(fiscalon_control, checked);
  MEMBER(fiscalon_control, locked);
  MEMBER(fiscalon_control, enabled);
  MEMBER(fiscalon_control, visible);
  return 0;
}
