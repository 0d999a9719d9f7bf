// A run from the source to the folder, and the check of a folder: what the command line runs, and what tests
// and other programs call.
#ifndef MKBOOK_BUILD_H
#define MKBOOK_BUILD_H

#include <string>

#include "mkbook/Options.h"
#include "mkdict/Build.h"
#include "mkdict/Faults.h"
#include "mkdict/Progress.h"
#include "mkdict/Summary.h"

namespace zavel::mkbook {

// Compiles the source into options.target, whole or not at all, or with options.verify compares what stands
// there. *summary tells what was taken and left out, *faults in what the book differs.
mkdict::Outcome build(const Options& options, mkdict::Progress& progress, mkdict::Summary* summary,
                      mkdict::Faults* faults);

// What a run tells at its end, as mkdict does: for standard output as text, or as one JSON object on one line
// (keys: schema, status "built", "good", "damaged" or "error", folder, figures, left_out, and with "damaged"
// fault_count and faults, with "error" error); and for standard error.
std::string reportText(const Options& options, const mkdict::Outcome& outcome, const mkdict::Summary& summary,
                       const mkdict::Faults& faults);
std::string reportJson(const Options& options, const mkdict::Outcome& outcome, const mkdict::Summary& summary,
                       const mkdict::Faults& faults);
std::string reportErrors(const mkdict::Outcome& outcome);

}  // namespace zavel::mkbook

#endif
