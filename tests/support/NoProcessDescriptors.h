// A kernel without process descriptors.
#ifndef TESTS_SUPPORT_NOPROCESSDESCRIPTORS_H
#define TESTS_SUPPORT_NOPROCESSDESCRIPTORS_H

#include <errno.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <stddef.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zavel::test {

// From now on, and in this process for ever.
inline bool forbidProcessDescriptors() {
  struct sock_filter steps[] = {
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(struct seccomp_data, nr)),
      BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_pidfd_open, 0, 1),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | ENOSYS),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
  };
  const struct sock_fprog program = {sizeof steps / sizeof steps[0], steps};
  return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
         ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program, 0, 0) == 0;
}

// What `works` answers in a process of its own in which they are forbidden.
template <typename Work>
bool withoutProcessDescriptors(Work works) {
  const pid_t pid = ::fork();
  if (pid == 0)
    ::_exit(forbidProcessDescriptors() && ::syscall(SYS_pidfd_open, ::getpid(), 0) < 0 && works() ? 0 : 1);
  int status = -1;
  return pid > 0 && ::waitpid(pid, &status, 0) == pid && status == 0;
}

}  // namespace zavel::test

#endif
