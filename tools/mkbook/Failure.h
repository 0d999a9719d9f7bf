// Why a run can't go on: carried by an exception to the one place that tells it.
#ifndef MKBOOK_FAILURE_H
#define MKBOOK_FAILURE_H

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <string>

#include "mkdict/ExitStatus.h"

namespace zavel::mkbook {

class Failure : public std::runtime_error {
 public:
  // `status` as in mkdict/ExitStatus.h; `code` for programs, such as "missing_input"; `hint` says what to do.
  Failure(int status, const std::string& code, const std::string& message, const std::string& hint)
      : std::runtime_error(message), status_(status), code_(code), hint_(hint) {}

  int status() const { return status_; }
  const std::string& code() const { return code_; }
  const std::string& hint() const { return hint_; }

 private:
  int status_;
  std::string code_;
  std::string hint_;
};

// "writing /x/BODY.DAT failed: No space left on device", by the system's last error.
inline Failure writeFailure(const std::string& what) {
  const std::string reason = errno == 0 ? "" : std::string(": ") + std::strerror(errno);
  return Failure(
      mkdict::kExitEnvironment, "write_failed", what + " failed" + reason,
      "What stood there before is unchanged. Make room on the disk, or make the folder writable, and try "
      "again.");
}

}  // namespace zavel::mkbook

#endif
