// Tests: tests/port/DesktopApplicationsTest.cpp
#include "desktop/Parameters.h"

#include "desktop/Bus.h"

namespace zavel::desktop {
namespace {

constexpr size_t kMostBytes = size_t{32} * 1024 * 1024;  // half of what a bus takes in an array

bool canBeSent(const ZavelMessage& message) {
  size_t total = 0;
  for (size_t i = 0; i < message.count; ++i) {
    const ZavelParameter& parameter = message.parameters[i];
    if (!isCode(parameter.keyword) || !isCode(parameter.type)) return false;
    if (parameter.size > kMostBytes || total > kMostBytes) return false;
    total += parameter.size + 32;
  }
  return total <= kMostBytes;
}

}  // namespace

GVariant* toVariant(const ZavelMessage& message) {
  if (!canBeSent(message)) return nullptr;
  GVariantBuilder list;
  g_variant_builder_init(&list, G_VARIANT_TYPE("a(ssay)"));
  for (size_t i = 0; i < message.count; ++i) {
    const ZavelParameter& parameter = message.parameters[i];
    GVariant* const bytes =
        g_variant_new_fixed_array(G_VARIANT_TYPE_BYTE, parameter.bytes, parameter.size, 1);
    g_variant_builder_add(&list, "(ss@ay)", parameter.keyword, parameter.type, bytes);
  }
  return g_variant_builder_end(&list);
}

ReceivedMessage::ReceivedMessage(const char* eventClass, const char* eventId, GVariant* parameters)
    : parameters_(g_variant_ref(parameters)) {
  message_.eventClass = eventClass;
  message_.eventId = eventId;
  sound_ = (!eventClass || isCode(eventClass)) && (!eventId || isCode(eventId));
  GVariantIter all;
  g_variant_iter_init(&all, parameters);
  ZavelParameter parameter = {};
  GVariant* bytes = nullptr;
  while (g_variant_iter_next(&all, "(&s&s@ay)", &parameter.keyword, &parameter.type, &bytes)) {
    bytes_.push_back(bytes);
    parameter.bytes = g_variant_get_fixed_array(bytes, &parameter.size, 1);
    list_.push_back(parameter);
    sound_ = sound_ && isCode(parameter.keyword) && isCode(parameter.type);
  }
  message_.parameters = list_.data();
  message_.count = list_.size();
}

ReceivedMessage::~ReceivedMessage() {
  for (GVariant* bytes : bytes_) g_variant_unref(bytes);
  g_variant_unref(parameters_);
}

}  // namespace zavel::desktop
