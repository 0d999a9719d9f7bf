// What one search of one dictionary came to.
#ifndef SHELL_LOOKUPSTATUS_H
#define SHELL_LOOKUPSTATUS_H

namespace zavel {

enum LookupStatus {
  LookupFound = 0,                // rows are in the result list, the limit is not reached
  LookupLimitReached = 1,         // the result list holds as many rows as it may; the walk stops
  LookupNotFound = 2,             // the result list is empty after this search
  LookupParameterFileFailed = 3,  // the helper's dictionary parameter file could not be written
  LookupSourceWriteFailed = 4,    // the query could not be written for the helper
  LookupEngineFailed = 6,         // the helper failed, no such book, or the tab was cleared meanwhile
};

}  // namespace zavel

#endif
