// What a run tells at its end.
#ifndef MKDICT_REPORT_H
#define MKDICT_REPORT_H

#include <string>

#include "mkdict/Build.h"

namespace zavel::mkdict {

// All UTF-8, borrowed for as long as the report lives.
struct Report {
  const Options& options;
  const Outcome& outcome;
  const Summary& summary;
  const Faults& faults;

  // For standard output: the account, empty when quiet or when the run failed (but for the faults of a
  // damaged set, which are its answer).
  std::string text() const;
  // For standard output with --json: one object on one line, whatever happened, without times, so that two
  // runs compare equal. Keys: schema, status ("built", "good", "damaged" or "error"), folder, figures,
  // left_out, and with "damaged" fault_count and faults, with "error" error.
  std::string json() const;
  // For standard error: what went wrong and what to do about it.
  std::string errors() const;
};

}  // namespace zavel::mkdict

#endif
