// Tests: tests/lookup/MirellDataTest.cpp
#include "lookup/MirellData.h"

#include "lookup/ByteText.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"

namespace zavel {
namespace {

std::string titleOf(std::string bytes) {
  cutAtZero(bytes);
  return platform().encoding().fromSjisLossy(bytes);
}

}  // namespace

void MirellData::initWithMidashiBytes(const char* midashiBytes, size_t midashiLength,
                                      const char* keywordBytes, size_t keywordLength, bool english) {
  midashiData_.assign(midashiBytes, midashiLength);
  keywordData_.assign(keywordBytes, keywordLength);
  english_ = english ? 1 : 0;
  indexTitle_ = titleOf(midashiData_);
  iPodTitle_ = titleOf(keywordData_);
}

void MirellData::setDataIndexTitle(const std::string& indexTitle, const std::string& cacheFile) {
  indexTitle_ = indexTitle;
  cacheFile_ = cacheFile;
}

void MirellData::setData(const SjisBytes& data, const std::string& cacheFile) {
  setDataIndexTitle(platform().encoding().fromSjisLossy(data.bytes()), cacheFile);
}

MirellData MirellData::copyWithZone() const {
  MirellData copy;
  copy.setDataIndexTitle(indexTitle_, cacheFile_);
  return copy;
}

}  // namespace zavel
