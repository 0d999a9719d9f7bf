// Exit statuses of mkdict, the same as those of the host program.
#ifndef MKDICT_EXITSTATUS_H
#define MKDICT_EXITSTATUS_H

namespace zavel::mkdict {

inline constexpr int kExitDone = 0;
inline constexpr int kExitUsage = 2;          // wrong usage
inline constexpr int kExitEnvironment = 3;    // an input is missing, the disk refuses
inline constexpr int kExitDamaged = 5;        // an input or a set is damaged
inline constexpr int kExitInterrupted = 130;  // SIGINT or SIGTERM; nothing was written

}  // namespace zavel::mkdict

#endif
