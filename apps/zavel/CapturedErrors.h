// Keeps what programs write to standard error while one lives, so that it can be looked at before a terminal
// gets it.
#ifndef ZAVEL_CAPTUREDERRORS_H
#define ZAVEL_CAPTUREDERRORS_H

#include <string>

namespace zavel::host {

class CapturedErrors {
 public:
  CapturedErrors();
  ~CapturedErrors();
  CapturedErrors(const CapturedErrors&) = delete;
  CapturedErrors& operator=(const CapturedErrors&) = delete;

  // Ends it and gives what was written, raw bytes. What goes beyond 64 KB is lost to its writer, which isn't
  // kept waiting. Empty where it could not be begun: then all went to standard error as ever.
  std::string take();

 private:
  void restore();

  int saved_ = -1;  // standard error as it was; -1 when nothing is captured
  int read_ = -1;   // the pipe's end
};

}  // namespace zavel::host

#endif
