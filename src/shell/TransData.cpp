// Tests: tests/shell/TransDataTest.cpp
#include "shell/TransData.h"

#include "platform/Bundle.h"
#include "platform/Platform.h"
#include "platform/PropertyLists.h"
#include "platform/TextEncoding.h"

namespace zavel {
namespace {

constexpr const char* kSearch = "Search";
constexpr const char* kDictInfo = "DictInfoJE";
constexpr const char* kIndent = "    ";

// "/a/b.dic" and "/a/b.dic/" give "b".
std::string nameOf(std::string path) {
  while (path.ends_with('/')) path.pop_back();
  const std::string file = path.substr(path.find_last_of('/') + 1);
  const size_t dot = file.rfind('.');
  return dot == std::string::npos || dot == 0 ? file : file.substr(0, dot);
}

}  // namespace

void TransData::initWithIndexTitle(const std::string& indexTitle, const std::string& detailString) {
  setIndexTitle(indexTitle, detailString);
}

void TransData::setIndexTitle(const std::string& indexTitle, const std::string& detailString) {
  indexTitle_ = indexTitle;
  detailString_ = detailString;
}

void TransData::initWithIndexTitleData(const SjisBytes& title, const std::string& path, bool english) {
  setIndexTitle(platform().encoding().fromSjisLossy(title.bytes()), "");
  english_ = english ? 1 : 0;
  Value result;
  if (!platform().propertyLists().readFile(path, &result)) return;
  const Value* search = result.find(kSearch);
  const Value::Array* elements = search ? search->asArray() : nullptr;
  if (!elements || elements->empty()) return;
  if (english) {
    detailString_ = elements->front().string();
    return;
  }
  for (const Value& element : *elements) {
    if (element.isString()) {
      addWord(*element.asString());
    } else {
      openGroup(element, result.find(kDictInfo));
    }
  }
}

void TransData::addWord(const std::string& word) {
  detailString_ += kIndent + word + "\n";
}

void TransData::openGroup(const Value& number, const Value* paths) {
  if (!detailString_.empty()) detailString_ += "\n";
  const Value* path = paths ? paths->find(std::to_string(number.integer())) : nullptr;
  detailString_ += platform().bundle().localized("StarMark") + nameOf(path ? path->string() : "") + "\n";
}

}  // namespace zavel
