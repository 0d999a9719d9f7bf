#include "mkdict/Summary.h"

#include <algorithm>

#include "mkdict/JsonString.h"

namespace zavel::mkdict {
namespace {

constexpr size_t kSamples = 5;

// 267381 as "267,381".
std::string grouped(uint64_t value) {
  std::string digits = std::to_string(value);
  for (size_t at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, ",");
  return digits;
}

std::string padded(const std::string& number) {
  return std::string(number.size() < 11 ? 11 - number.size() : 0, ' ') + number;
}

}  // namespace

void Summary::figure(const std::string& name, uint64_t value) {
  for (auto& [known, number] : figures_) {
    if (known == name) {
      number = value;
      return;
    }
  }
  figures_.emplace_back(name, value);
}

void Summary::count(const std::string& name, uint64_t by) {
  figure(name, valueOf(name) + by);
}

void Summary::leftOut(const std::string& reason, const std::string& sample, bool every) {
  auto at = std::find_if(reasons_.begin(), reasons_.end(), [&](const Reason& r) { return r.name == reason; });
  if (at == reasons_.end()) {
    reasons_.push_back({reason, 0, {}, false});
    at = reasons_.end() - 1;
  }
  ++at->count;
  if (!every && std::find(at->samples.begin(), at->samples.end(), sample) != at->samples.end()) return;
  if (every || at->samples.size() < kSamples) {
    at->samples.push_back(sample);
  } else {
    at->more = true;
  }
}

uint64_t Summary::valueOf(const std::string& name) const {
  for (const auto& [known, number] : figures_) {
    if (known == name) return number;
  }
  return 0;
}

uint64_t Summary::leftOutCount(const std::string& reason) const {
  for (const Reason& known : reasons_) {
    if (known.name == reason) return known.count;
  }
  return 0;
}

std::string Summary::text() const {
  std::string out;
  for (const auto& [name, value] : figures_) out += padded(grouped(value)) + "  " + name + "\n";
  if (!reasons_.empty()) out += "Left out or changed:\n";
  for (const Reason& reason : reasons_) {
    out += padded(grouped(reason.count)) + "  " + reason.name + ": ";
    const size_t shown = std::min(reason.samples.size(), kSamples);
    for (size_t i = 0; i < shown; ++i) out += (i == 0 ? "" : ", ") + reason.samples[i];
    out += reason.more || reason.samples.size() > shown ? ", ...\n" : "\n";
  }
  return out;
}

std::string Summary::json() const {
  std::string out = "{\"figures\":{";
  for (size_t i = 0; i < figures_.size(); ++i) {
    out += (i == 0 ? "" : ",") + jsonString(figures_[i].first) + ":" + std::to_string(figures_[i].second);
  }
  out += "},\"left_out\":[";
  for (size_t i = 0; i < reasons_.size(); ++i) {
    const Reason& reason = reasons_[i];
    out += std::string(i == 0 ? "" : ",") + "{\"reason\":" + jsonString(reason.name) +
           ",\"count\":" + std::to_string(reason.count) + ",\"samples\":[";
    for (size_t k = 0; k < reason.samples.size(); ++k)
      out += (k == 0 ? "" : ",") + jsonString(reason.samples[k]);
    out += "]}";
  }
  return out + "]}";
}

}  // namespace zavel::mkdict
