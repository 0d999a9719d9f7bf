// Tests: tests/mkdict/KatuRecordsTest.cpp, EnglishEntriesTest.cpp.
#include "mkdict/BaseForms.h"

#include "engine/KatuyoGenkei.h"

namespace zavel::mkdict {

std::string firstBaseForm(const std::string& form,
                          const std::function<bool(const std::string& base, uint8_t mask)>& fits) {
  std::string base;
  uint8_t mask = 0;
  for (uint16_t stage = 0;
       engine::GetOriginalForm(form, &base, static_cast<uint16_t>(stage + 1), &stage, &mask);) {
    if (fits(base, mask)) return base;
    if (stage == engine::kLastStage) break;
  }
  return {};
}

}  // namespace zavel::mkdict
