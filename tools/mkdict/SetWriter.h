// Puts a set of files into a folder, all of them or none.
#ifndef MKDICT_SETWRITER_H
#define MKDICT_SETWRITER_H

#include <string>
#include <vector>

#include "mkdict/BasicSet.h"
#include "mkdict/Progress.h"

namespace zavel::mkdict {

// The files are written into a folder beside the target, `target`.partial-<process>, and synced; then that
// folder takes the target's name. What stood there before is removed only after. A target that holds
// anything but files of such a set is never touched.
class SetWriter {
 public:
  // `swap` false: replace an old folder by two renames even where the system can swap two in one step.
  explicit SetWriter(const std::string& target, bool swap = true);
  // Removes what an unfinished write() left.
  ~SetWriter();
  SetWriter(const SetWriter&) = delete;
  SetWriter& operator=(const SetWriter&) = delete;

  // Whether the target may be written, before the long work begins: its parent can be made, and it is
  // missing, empty or an older set. False with a sentence in *error.
  bool prepare(std::string* error);

  // Makes the folder that write() fills, so that a target that can't be written to shows before the long
  // work. False with a sentence in *error.
  bool start(std::string* error);

  // Writes the files and puts them in place; calls start() where that was not done. False with a sentence in
  // *error, left() then telling what stands in the target, or when `progress` was cancelled before the files
  // were in place (*error empty).
  bool write(const std::vector<SetFile>& files, Progress& progress, std::string* error);

  const std::string& target() const { return target_; }

  // After a failed write().
  enum class Left {
    kAsItWas,  // the target is unchanged
    kNewSet,   // the new set is in place, but the system would not promise that it outlasts a power cut
    kAside,    // nothing in the target: the old set waits in aside() for the next run to put it back
  };
  Left left() const { return left_; }
  std::string aside() const;

  // Name of the list of sources beside the thirteen files.
  static constexpr const char* kSources = "SOURCES.txt";

 private:
  bool writeFile(const SetFile& file, std::string* error);
  bool putInPlace(std::string* error);
  bool swapFolders();

  std::string target_;   // absolute, without a final delimiter
  std::string partial_;  // the folder being filled
  bool swap_;
  bool unfinished_ = false;  // partial_ exists
  Left left_ = Left::kAsItWas;
};

}  // namespace zavel::mkdict

#endif
