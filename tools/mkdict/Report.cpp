// Tests: tests/mkdict/ReportTest.cpp.
#include "mkdict/Report.h"

#include "mkdict/JsonString.h"

namespace zavel::mkdict {
namespace {

std::string member(const char* name, const std::string& value) {
  return jsonString(name) + ":" + value;
}

std::string faultsJson(const Faults& faults) {
  std::string out;
  for (const Fault& fault : faults.kept()) {
    out += std::string(out.empty() ? "" : ",") + "{" + member("file", jsonString(fault.file)) + "," +
           member("offset", std::to_string(fault.offset)) + "," +
           member("message", jsonString(fault.message)) + "}";
  }
  return "[" + out + "]";
}

std::string statusOf(const Outcome& outcome, bool verified) {
  if (outcome.status == kExitDone) return verified ? "good" : "built";
  return outcome.code == "damaged_set" ? "damaged" : "error";
}

}  // namespace

std::string Report::text() const {
  const bool verified = !options.verify.empty();
  std::string out;
  for (const Fault& fault : faults.kept()) out += fault.text() + "\n";
  if (faults.total() > faults.kept().size()) {
    out += "and " + std::to_string(faults.total() - faults.kept().size()) + " more\n";
  }
  if (options.quiet || outcome.status != kExitDone) return out;
  out += summary.text();
  return out + (verified ? options.verify + " is sound.\n" : "Written to " + options.target + "\n");
}

std::string Report::json() const {
  const bool verified = !options.verify.empty();
  const std::string status = statusOf(outcome, verified);
  std::string out = "{" + member("schema", "1") + "," + member("status", jsonString(status));
  if (status == "error") {
    return out + "," +
           member("error", "{" + member("code", jsonString(outcome.code)) + "," +
                               member("message", jsonString(outcome.message)) + "," +
                               member("hint", jsonString(outcome.hint)) + "}") +
           "}\n";
  }
  out += "," + member("folder", jsonString(verified ? options.verify : options.target));
  const std::string account = summary.json();
  out += "," + account.substr(1, account.size() - 2);
  if (status == "damaged") {
    out += "," + member("fault_count", std::to_string(faults.total())) + "," +
           member("faults", faultsJson(faults));
  }
  return out + "}\n";
}

std::string Report::errors() const {
  if (outcome.status == kExitDone) return "";
  const std::string line = "mkdict: " + outcome.message + "\n";
  return outcome.status == kExitInterrupted ? line
                                            : line + outcome.hint + "\n";  // who interrupted it knows why
}

}  // namespace zavel::mkdict
