// Tests: tests/port/NoApplicationsTest.cpp
#include "base/NoApplications.h"

namespace zavel {

std::optional<ProcessNumber> NoApplications::find(const std::string&, const std::string&) {
  return std::nullopt;
}

int NoApplications::launch(const std::string&, bool, ProcessNumber*) {
  return -1;
}

SendResult NoApplications::send(const ProcessNumber&, const Message&, Message*) {
  return SendResult::kNotSent;
}

}  // namespace zavel
