// One search of one dictionary, by its kind. Tests: tests/shell/LookupTest.cpp
#include <algorithm>

#include "config/WorkPaths.h"
#include "config/ZFWPlistKeys.h"
#include "config/ZPFile.h"
#include "config/ZavelApplet.h"
#include "config/ZavelPath.h"
#include "foundation/Storage.h"
#include "platform/Log.h"
#include "platform/Platform.h"
#include "platform/ToolRunner.h"
#include "shell/S_Controller.h"

namespace zavel {
namespace {

// kept: blind to character boundaries; a half character goes on and is refused by the engine (docs/quirks.md)
constexpr size_t kMirellQueryLimit = 50;  // bytes

std::string stringAt(const Value& map, const char* key) {
  const Value* value = map.find(key);
  return value ? value->string() : std::string();
}

std::string upToZero(const std::string& line) {
  return line.substr(0, line.find('\0'));
}

// The row of one headword line of the manager.
MirellData rowOf(MirellDictionaryManager& manager, const std::string& line, bool english) {
  const std::string keyword = manager.ExtractKeywordFromMidashiData(upToZero(line));
  MirellData row;
  row.initWithMidashiBytes(line.data(), line.size(), keyword.data(), keyword.size(), english);
  return row;
}

}  // namespace

LookupStatus S_Controller::lookup(const SjisBytes& query, const Value& dictItem, bool english,
                                  int /*direction*/) {
  const uint64_t turn = lookups_;
  if (progressSpinning_) progressSpinning_->start();
  if (!isLatest(turn)) return giveUp();
  const std::string type = stringAt(dictItem, ZFWDictTypeKey);
  bool finishes = true;
  LookupStatus status = LookupEngineFailed;
  if (type == ZFWMirellType) {
    status = lookupMirell(query, english);
  } else if (type == ZFWTransType) {
    status = lookupTrans(query, english, &finishes);
  } else {
    status = lookupBook(dictItem, &finishes);
  }
  if (!isLatest(turn)) return giveUp();
  return finishes ? finish(status) : status;
}

// kept: a search whose list is empty found nothing, whatever went wrong in it (docs/quirks.md)
LookupStatus S_Controller::finish(LookupStatus status) {
  if (!inTurn({[this] { hwListView_.reloadData(); }})) return giveUp();
  if (hwResultArray_.empty()) status = LookupNotFound;
  if (progressSpinning_) progressSpinning_->stop();
  return status;
}

// A newer look-up came in between: list and detail are its own, and so is what is told of them.
LookupStatus S_Controller::giveUp() {
  if (progressSpinning_) progressSpinning_->stop();
  return LookupEngineFailed;
}

LookupStatus S_Controller::limitStatus() const {
  return hwResultArray_.size() >= referenceMaxCount ? LookupLimitReached : LookupFound;
}

LookupStatus S_Controller::lookupMirell(const SjisBytes& query, bool english) {
  if (!mirellManager_) return limitStatus();
  std::string word = query.bytes().substr(0, kMirellQueryLimit);
  if (english) word = mirellManager_->GetOrigin(word);
  const bool found = english ? mirellManager_->GetMidashiE(word) : mirellManager_->GetMidashiJ(word);
  const uint32_t count = found ? mirellManager_->CountMidashiData() : 0;
  for (uint32_t i = 0; i < count; ++i) {
    hwResultArray_.emplace_back(rowOf(*mirellManager_, mirellManager_->GetMidashiData(i), english));
  }
  return limitStatus();
}

// kept: the two early failures leave the busy indicator running, until the next search stops it
// (docs/quirks.md)
LookupStatus S_Controller::lookupTrans(const SjisBytes& query, bool english, bool* finishes) {
  *finishes = false;
  if (!writeFileAtomically(gSourcePath, query.bytes())) {
    logLine("Source write error");
    return LookupSourceWriteFailed;
  }
  const bool ownStyle = ownedApplet == ZAVEL_APPLET_TRANSLATION_EDITOR || ownedApplet == ZAVEL_APPLET_BROWSER;
  if (ownStyle) styleNumer_ = std::to_string(docStyle_);
  if (zavelType() == ZAVEL_TYPE_GENERAL && !saveZP(docStyle_)) return LookupParameterFileFailed;
  *finishes = true;
  const std::string program = english ? gEJEnginePath : gJEEnginePath;
  const uint64_t turn = lookups_;
  const ToolResult tool = platform().tools().run(program, toolArguments());
  if (!isLatest(turn)) return LookupEngineFailed;  // a host's runner may let events in
  // One that was ended may say that all went well, with an answer from before or half of one.
  const bool ended = tool.interrupted || tool.stopped;
  if (!tool.started || ended || tool.exitStatus != 0) return LookupEngineFailed;
  TransData row;
  row.initWithIndexTitleData(query, gResultPath, english);
  if (row.isAvailable()) hwResultArray_.emplace_back(std::move(row));
  return limitStatus();
}

std::vector<std::string> S_Controller::toolArguments() const {
  std::vector<std::string> arguments = {"-m"};
  if (zavelType() == ZAVEL_TYPE_GENERAL) arguments = {"-d", gDictPath};
  for (const std::string& argument :
       {std::string("-i"), gStylePath, std::string("-s"), styleNumer_, std::string("-e"), gSourcePath,
        std::string("-r"), gResultPath, std::string("-w")}) {
    arguments.push_back(argument);
  }
  return arguments;
}

LookupStatus S_Controller::lookupBook(const Value& dictItem, bool* finishes) {
  const std::string title = stringAt(dictItem, ZFWDictTitleKey);
  const bool known = std::any_of(twedDictionaryArray_.begin(), twedDictionaryArray_.end(),
                                 [&](const Value& book) { return stringAt(book, "Name") == title; });
  *finishes = known;
  if (known) return LookupEngineFailed;  // none of its engines is there
  logLine("Dict title match error.");
  if (progressSpinning_) progressSpinning_->stop();
  return LookupEngineFailed;
}

}  // namespace zavel
