// The client of the helper application that looks words up for hosts that don't load the dictionaries.
// Tests: tests/lookup/MirellLookupTest.cpp
//
//   class "misc", id "dsEJ" or "dsJE"                            reply
//   | "file" TEXT cache name | "mode" long filter |              | "----" long: above 0 or below -5 done,
//   | "qury" TEXT query      | "size" long points |              |   0 to -5 failed |
#include <algorithm>

#include "config/ZavelPath.h"
#include "foundation/ByteReader.h"
#include "lookup/MirellModule.h"
#include "platform/Applications.h"
#include "platform/Log.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"

namespace zavel {
namespace {

// What "Lookup error : %d" tells.
enum LookupError {
  kNoError = 0,
  kAnsweredZero = 1,
  kHelperNotStarted = 2,
  kAnsweredOneToThree = 3,
  kNotSent = 4,
  kNoAnswer = 5,
};

constexpr int kHelperRuns = 1;  // of Applications::launch

MessageParameter textParameter(const char* keyword, const std::string& bytes) {
  return {keyword, "TEXT", bytes};
}

MessageParameter longParameter(const char* keyword, uint32_t number) {
  std::string bytes;
  appendBE32(bytes, number);
  return {keyword, "long", bytes};
}

std::optional<ProcessNumber> findOrStartHelper() {
  std::optional<ProcessNumber> running = platform().applications().find("ZXds", "APPL");
  if (running) return running;
  const char* const path = zavelPathHelperKenkyuDictionary();
  ProcessNumber started;
  if (path == nullptr || platform().applications().launch(path, true, &started) != kHelperRuns) {
    return std::nullopt;
  }
  return started;
}

std::optional<int32_t> directLong(const Message& reply) {
  for (const MessageParameter& parameter : reply.parameters) {
    if (parameter.keyword != "----") continue;
    if (parameter.type != "long" || parameter.value.size() != 4) return std::nullopt;
    return static_cast<int32_t>(readBE32(reinterpret_cast<const uint8_t*>(parameter.value.data())));
  }
  return std::nullopt;
}

// Kept: an answer below -5 is a success; see docs/quirks.md.
LookupError errorOf(int32_t answer) {
  switch (answer) {
    case 0:
      return kAnsweredZero;
    case -1:
    case -2:
    case -3:
      return kAnsweredOneToThree;
    case -4:
      return kNotSent;
    case -5:
      return kNoAnswer;
    default:
      return kNoError;
  }
}

LookupError ask(const ProcessNumber& helper, const Message& question) {
  Message reply;
  switch (platform().applications().send(helper, question, &reply)) {
    case SendResult::kNotBuilt:
      return kNoAnswer;
    case SendResult::kNotSent:
      return kNotSent;
    case SendResult::kSent:
      break;
  }
  const std::optional<int32_t> answer = directLong(reply);
  return answer ? errorOf(*answer) : kNoAnswer;
}

}  // namespace

std::optional<std::string> MirellModule::mirellLookup(const std::string& query, uint8_t mode, bool english,
                                                      uint32_t fontSize, const std::string& cacheName) {
  LookupError error = kHelperNotStarted;
  if (const std::optional<ProcessNumber> helper = findOrStartHelper()) {
    Message question{"misc", english ? "dsEJ" : "dsJE", {}};
    question.parameters.push_back(
        textParameter("file", platform().encoding().toSjisLossy(cacheName).bytes()));
    question.parameters.push_back(longParameter("mode", mode));
    question.parameters.push_back(textParameter("qury", query));
    question.parameters.push_back(longParameter("size", fontSize));
    error = ask(*helper, question);
  }
  const std::optional<std::string> resultFile = cachePathFor(cacheName);
  if (error == kNoError && !resultFile) error = kNoAnswer;
  if (error == kNoError) return resultFile;
  logLine("Lookup error : " + std::to_string(error));
  return std::nullopt;
}

}  // namespace zavel
