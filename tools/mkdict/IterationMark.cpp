// Tests: tests/mkdict/IterationMarkTest.cpp.
#include "mkdict/IterationMark.h"

#include <algorithm>
#include <vector>

#include "engine/Shim.h"

namespace zavel::mkdict {
namespace {

constexpr std::string_view kMark = "\x81\x58";  // 々

std::vector<std::string_view> charactersOf(std::string_view sjis) {
  std::vector<std::string_view> characters;
  for (size_t at = 0; at < sjis.size();) {
    characters.push_back(sjis.substr(at, engine::_ismbblead(static_cast<uint8_t>(sjis[at])) ? 2 : 1));
    at += characters.back().size();
  }
  return characters;
}

}  // namespace

std::string withKanjiRepeated(std::string_view sjis) {
  if (sjis.find(kMark) == std::string_view::npos) return std::string(sjis);
  std::vector<std::string_view> out;
  const std::vector<std::string_view> in = charactersOf(sjis);
  for (auto at = in.begin(); at != in.end();) {
    const auto end = std::find_if(at, in.end(), [](std::string_view one) { return one != kMark; });
    const size_t repeated = std::min(static_cast<size_t>(end - at), out.size());
    if (repeated == 0) {
      out.push_back(*at++);
      continue;
    }
    const size_t from = out.size() - repeated;
    for (size_t i = 0; i < repeated; ++i) out.push_back(std::string_view(out[from + i]));
    at = end;
  }
  std::string text;
  for (const std::string_view one : out) text += one;
  return text;
}

}  // namespace zavel::mkdict
