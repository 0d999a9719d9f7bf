// Tests: tests/zavel/PrefsTest.cpp
#include "PrefsCommand.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <cstdio>
#include <functional>
#include <optional>

#include "Dictionaries.h"
#include "Failure.h"
#include "Host.h"
#include "HostPlatform.h"
#include "JsonWriter.h"
#include "LockFile.h"
#include "Places.h"
#include "PlacesInUse.h"
#include "Store.h"
#include "Utf8.h"
#include "config/ZFWPlistController.h"
#include "prefs/ZFWDictTabView.h"

namespace zavel::host {
namespace {

constexpr std::chrono::seconds kPatience{10};

struct Item {
  bool on = false;
  std::string name;  // in the user's language, where the list has it in that of its first day
  std::string type;
};

std::optional<RowKind> kindOf(const std::string& type) {
  if (type == ZFWMirellType) return RowKind::kBilingual;
  if (type == ZFWTransType) return RowKind::kTranslation;
  return std::nullopt;
}

std::string typeName(const std::string& type) {
  if (const std::optional<RowKind> kind = kindOf(type)) return kindName(*kind);
  return type == ZFWHwType ? "book" : "unknown";
}

std::string onOneLine(std::string text) {
  std::replace(text.begin(), text.end(), '\n', ' ');
  return withoutControls(std::move(text));
}

std::string member(const Value& map, const char* key) {
  const Value* value = map.find(key);
  return value ? value->string() : std::string();
}

std::string lowerCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(c < 0x80 ? std::tolower(c) : c); });
  return text;
}

// The dictionary list of the store, for one command.
class DictionaryList {
 public:
  DictionaryList() {
    if (const std::string damage = openStore(platform_); !damage.empty()) warn(damage);
    tab_.emplace();
    tab_->loadTWED();
    tab_->loadApplet();
  }
  ~DictionaryList() {
    tab_.reset();
    closeStore();
  }
  DictionaryList(const DictionaryList&) = delete;
  DictionaryList& operator=(const DictionaryList&) = delete;

  ZFWDictTabView& tab() { return *tab_; }
  size_t size() const { return tab_->dictListArray().size(); }

  Item at(size_t index) const {
    const Value& item = tab_->dictListArray()[index];
    const std::optional<RowKind> kind = kindOf(member(item, ZFWDictTypeKey));
    return {member(item, ZFWSelectStatusKey) != ZFWNoStatus,
            kind ? dictionaryName(*kind) : onOneLine(member(item, ZFWDictTitleKey)),
            typeName(member(item, ZFWDictTypeKey))};
  }

  // By its number, its name in any language, or its type, in this order; nothing when there is none.
  std::optional<size_t> find(const std::string& wanted) const {
    const bool number =
        !wanted.empty() && wanted.size() < 7 && wanted.find_first_not_of("0123456789") == std::string::npos;
    if (number) {
      const size_t index = std::stoul(wanted);
      return index >= 1 && index <= size() ? std::optional<size_t>(index - 1) : std::nullopt;
    }
    for (std::string Item::*field : {&Item::name, &Item::type}) {
      for (size_t i = 0; i < size(); ++i) {
        if (lowerCase(at(i).*field) == lowerCase(wanted)) return i;
      }
    }
    return findByOtherName(wanted);
  }

  // Whether this system searches them; else an outside book browser gets the words.
  bool searched() const { return tab_->getApplet() == kAppletSystem; }

 private:
  std::optional<size_t> findByOtherName(const std::string& wanted) const {
    for (size_t i = 0; i < size(); ++i) {
      const std::optional<RowKind> kind = kindOf(member(tab_->dictListArray()[i], ZFWDictTypeKey));
      if (!kind) continue;
      for (const std::string& name : dictionaryNames(*kind)) {
        if (lowerCase(name) == lowerCase(wanted)) return i;
      }
    }
    return std::nullopt;
  }

  HostPlatform platform_;
  std::optional<ZFWDictTabView> tab_;
};

std::string listJson(const DictionaryList& list) {
  JsonWriter json;
  json.beginObject().member("schema", 1).member("file", gZFWPlist->path());
  json.key("searched").boolean(list.searched()).key("dictionaries").beginArray();
  for (size_t i = 0; i < list.size(); ++i) {
    const Item item = list.at(i);
    json.beginObject().member("number", static_cast<int64_t>(i + 1)).key("on").boolean(item.on);
    json.member("name", item.name).member("type", item.type).endObject();
  }
  json.endArray().endObject();
  return json.text() + "\n";
}

std::string listText(const DictionaryList& list) {
  size_t width = 0;
  for (size_t i = 0; i < list.size(); ++i) width = std::max(width, columns(list.at(i).name));
  std::string text;
  for (size_t i = 0; i < list.size(); ++i) {
    const Item item = list.at(i);
    text += std::to_string(i + 1) + (item.on ? "  on   " : "  off  ") + item.name +
            std::string(width - columns(item.name) + 2, ' ') + item.type + "\n";
  }
  if (!list.searched()) text += "None of them is searched: words go to another application.\n";
  return text;
}

int show(const DictionaryList& list, bool json) {
  warnOfDamagedPathTable();
  const std::string text = json ? listJson(list) : listText(list);
  std::fputs(text.c_str(), stdout);
  return kExitFound;
}

Failure noSuchDictionary(const std::string& wanted) {
  return {kExitUsage, "no_such_dictionary", "there is no dictionary \"" + printable(wanted) + "\"",
          "Choose one by its number, name or type from: zavel prefs dict list"};
}

Failure notStored() {
  const std::string& path = gZFWPlist->path();
  return {kExitEnvironment, "not_stored", "the preferences can't be written: " + path + reasonAgainst(path),
          "Check that the disk isn't full and that the folder is yours."};
}

Failure locked(const LockFile& lock) {
  return {kExitEnvironment, "locked", "the preferences are being changed by " + lock.holder(),
          "Wait until it has ended, then try again."};
}

// Finds the dictionary, changes it, shows the list. One process at a time, from reading to writing: of two
// that read the same list the second would undo what the first changed.
int change(const PrefsDictOptions& options,
           const std::function<Failure(DictionaryList& list, size_t index)>& edit) {
  const Places places = findPlaces();
  if (places.data.empty()) return report(noHome(), options.json);
  makeFolders(places.config);
  const LockFile lock(places.config + "/.lock", kPatience);
  // Where no lock file can be made nothing can be stored, which is told then.
  if (!lock.held() && !lock.holder().empty()) return report(locked(lock), options.json);
  DictionaryList list;
  const std::optional<size_t> index = list.find(options.dictionary);
  if (!index) return report(noSuchDictionary(options.dictionary), options.json);
  if (const Failure failure = edit(list, *index)) return report(failure, options.json);
  return show(list, options.json);
}

}  // namespace

int runPrefsDictList(const PrefsDictOptions& options) {
  if (findPlaces().data.empty()) return report(noHome(), options.json);
  return show(DictionaryList(), options.json);
}

int runPrefsDictEnable(const PrefsDictOptions& options, bool on) {
  return change(options, [on](DictionaryList& list, size_t index) {
    return list.tab().setSelected(index, on) ? Failure{} : notStored();
  });
}

int runPrefsDictMove(const PrefsDictOptions& options) {
  return change(options, [&options](DictionaryList& list, size_t index) -> Failure {
    const size_t place = static_cast<size_t>(options.position);
    if (place < 1 || place > list.size()) {
      return {kExitUsage, "no_such_place", "the list has no place " + std::to_string(options.position),
              "Choose a place from 1 to " + std::to_string(list.size()) + "."};
    }
    return list.tab().moveItem(index, place - 1) ? Failure{} : notStored();
  });
}

}  // namespace zavel::host
