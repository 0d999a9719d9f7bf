// EDICT lines, and the Japanese entries that they make.
#ifndef TESTS_MKDICT_EDICTSUPPORT_H
#define TESTS_MKDICT_EDICTSUPPORT_H

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

#include "mkdict/EdictLine.h"
#include "mkdict/JapaneseEntries.h"

namespace zavel::mkdict {

// A sound line; the test fails when it is none.
inline EdictLine edictLine(std::string_view text) {
  EdictLine line;
  EXPECT_TRUE(EdictLine::parse(text, &line)) << text;
  return line;
}

struct MadeEntries {
  explicit MadeEntries(const std::vector<const char*>& lines) {
    JapaneseEntries maker(&summary);
    for (const char* text : lines) maker.add(edictLine(text));
    entries = maker.take();
  }
  Summary summary;
  std::vector<JapaneseEntry> entries;
};

}  // namespace zavel::mkdict

#endif
