// The lookup module tells of a dictionary that can't be opened on standard output, which belongs to answers
// here: in its place comes one clear line on standard error.
#ifndef ZAVEL_SILENTOUTPUT_H
#define ZAVEL_SILENTOUTPUT_H

namespace zavel::host {

// While one lives, what is written to standard output is dropped.
class SilentOutput {
 public:
  SilentOutput();
  ~SilentOutput();
  SilentOutput(const SilentOutput&) = delete;
  SilentOutput& operator=(const SilentOutput&) = delete;

 private:
  int saved_ = -1;
};

}  // namespace zavel::host

#endif
