// The run loop's module, on GLib's default main context, which D-Bus and the other services of the desktop
// share. Tests: tests/port/LinuxRunLoopTest.cpp
#include <glib-unix.h>
#include <poll.h>

#include "loop/LoopModule.h"

namespace {

struct Source {
  ZavelLoopCall call;
  void* data;
};

gboolean timerFired(gpointer data) {
  const Source source = *static_cast<Source*>(data);
  return source.call(source.data, 0);
}

// GIOCondition has poll()'s bits.
gboolean descriptorReady(int, GIOCondition condition, gpointer data) {
  const Source source = *static_cast<Source*>(data);
  return source.call(source.data, static_cast<int>(condition));
}

// May be called again from a turn inside its own call, since that may wait for the very events it tells of.
uint32_t attach(GSource* glib, GSourceFunc function, const Source& source) {
  g_source_set_callback(glib, function, g_memdup2(&source, sizeof source), g_free);
  g_source_set_can_recurse(glib, TRUE);
  const guint number = g_source_attach(glib, nullptr);
  g_source_unref(glib);
  return number;
}

uint32_t addTimer(uint32_t milliseconds, ZavelLoopCall call, void* data) {
  return attach(g_timeout_source_new(milliseconds), timerFired, Source{call, data});
}

uint32_t addWatch(int descriptor, int events, ZavelLoopCall call, void* data) {
  const auto condition = static_cast<GIOCondition>(events | POLLERR | POLLHUP);
  return attach(g_unix_fd_source_new(descriptor, condition), G_SOURCE_FUNC(descriptorReady),
                Source{call, data});
}

void removeSource(uint32_t source) {
  GSource* const found = g_main_context_find_source_by_id(nullptr, source);
  if (found) g_source_destroy(found);
}

void turn() {
  g_main_context_iteration(nullptr, TRUE);
}

constexpr ZavelLoopModule kModule = {kZavelLoopVersion, addTimer, addWatch, removeSource, turn};

}  // namespace

extern "C" __attribute__((visibility("default"))) const ZavelLoopModule* zavelLoopModule() {
  return &kModule;
}
