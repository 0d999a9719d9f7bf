// What the module of the desktop gives, in C, because the program that loads it may carry a C++ library of
// its own: no class, no exception and no allocated memory crosses this border. Pointers handed to a call or
// to a call-back are borrowed until it returns.
#ifndef PORT_LINUX_DESKTOP_DESKTOPMODULE_H
#define PORT_LINUX_DESKTOP_DESKTOPMODULE_H

#include <stddef.h>
#include <stdint.h>

extern "C" {

// The unique name ":1.42" on the bus is 1, 42.
struct ZavelProcess {
  uint32_t high;
  uint32_t low;
};

struct ZavelApplication {
  struct ZavelProcess process;
  const char* creator;  // four characters
  const char* type;     // four characters
  const char* name;     // UTF-8
  const char* path;     // UTF-8, empty when it isn't known
  int32_t pid;          // of the operating system; 0 when it isn't known
};

struct ZavelParameter {
  const char* keyword;  // four characters
  const char* type;     // four characters
  const void* bytes;
  size_t size;
};

struct ZavelMessage {
  const char* eventClass;  // four characters; null in a reply
  const char* eventId;     // four characters; null in a reply
  const struct ZavelParameter* parameters;
  size_t count;
};

enum ZavelSendResult { ZAVEL_SENT, ZAVEL_NOT_BUILT, ZAVEL_NOT_SENT };

typedef void (*ZavelApplicationCall)(void* data, const struct ZavelApplication* application);
typedef void (*ZavelReplyCall)(void* data, const struct ZavelMessage* reply);

// What an announced application does with a message: calls `answer` with `to` at most once, or gives 0 when
// it doesn't understand the message.
typedef int (*ZavelReceiveCall)(void* data, const struct ZavelMessage* message, ZavelReplyCall answer,
                                void* to);
typedef void (*ZavelFrontCall)(void* data);

struct ZavelDesktopModule {
  uint32_t version;  // kZavelDesktopVersion

  // Calls `each` for every application on the bus; with `creator` and `type` (both or none null) for those of
  // that signature alone, and then without names, paths and system numbers, which take asking the
  // application.
  void (*list)(const char* creator, const char* type, ZavelApplicationCall each, void* data);

  // Whether a process of that number is on the bus.
  int (*exists)(struct ZavelProcess process);

  // With a null `reply` it doesn't wait for an answer, else it does, without a limit, and serves nothing
  // meanwhile.
  enum ZavelSendResult (*send)(struct ZavelProcess process, const struct ZavelMessage* message,
                               ZavelReplyCall reply, void* data);

  // Asks the application to come forward, and doesn't wait.
  void (*bringToFront)(struct ZavelProcess process);

  // Makes this process known as `self` (its `process` and `pid` don't count), in place of what it was known
  // as. Calls come through the run loop. 0 on failure; else `number` is this process's.
  int (*announce)(const struct ZavelApplication* self, ZavelReceiveCall receive, ZavelFrontCall front,
                  void* data, struct ZavelProcess* number);

  // Ends that: nothing is called any more.
  void (*withdraw)();
};

#define ZAVEL_DESKTOP_FILE "zavel-port-desktop.so"
#define ZAVEL_DESKTOP_SYMBOL "zavelDesktopModule"
typedef const struct ZavelDesktopModule* (*ZavelDesktopGet)();
}

constexpr uint32_t kZavelDesktopVersion = 1;

#endif
