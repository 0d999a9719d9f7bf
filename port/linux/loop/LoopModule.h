// What the module of the run loop gives, in C, because the program that loads it may carry a C++ library of
// its own: no class, no exception and no allocated memory crosses this border.
#ifndef PORT_LINUX_LOOP_LOOPMODULE_H
#define PORT_LINUX_LOOP_LOOPMODULE_H

#include <stdint.h>

extern "C" {

// Called when a source is ready, `events` being those of poll() that came, 0 for a timer. 0 ends the source.
typedef int (*ZavelLoopCall)(void* data, int events);

struct ZavelLoopModule {
  uint32_t version;  // kZavelLoopVersion

  // The number of the source, never 0. A source stays until it is removed or its call answers 0. While it is
  // called it may be called again, from a turn inside.
  uint32_t (*addTimer)(uint32_t milliseconds, ZavelLoopCall call, void* data);
  uint32_t (*addWatch)(int descriptor, int events, ZavelLoopCall call, void* data);
  void (*removeSource)(uint32_t source);

  // One turn: waits until a source is ready and calls all that are.
  void (*turn)();
};

// The one function that the module exports.
#define ZAVEL_LOOP_FILE "zavel-port-loop.so"
#define ZAVEL_LOOP_SYMBOL "zavelLoopModule"
typedef const struct ZavelLoopModule* (*ZavelLoopGet)();
}

constexpr uint32_t kZavelLoopVersion = 1;

#endif
