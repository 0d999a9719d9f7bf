// Tests: tests/zavel/CommandTest.cpp, zavel-test.sh
#include "Host.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <vector>

#include "PlacesInUse.h"
#include "SilentOutput.h"
#include "StandInTable.h"
#include "Store.h"
#include "StyleFile.h"
#include "config/WorkPathTable.h"
#include "config/WorkPaths.h"
#include "config/ZFWPlistController.h"
#include "config/ZavelPath.h"
#include "foundation/Storage.h"
#include "platform/Log.h"
#include "platform/PropertyLists.h"

namespace zavel::host {

const std::array<const char*, 13> kDictionaryFiles = {
    "ej.dic",   "ej.ix3", "ej.idx", "hase.ix3", "hase.idx", "katu.dic", "katu.ix3",
    "katu.idx", "je.dic", "je.ix3", "je.idx",   "ke.ix3",   "ke.idx"};

namespace {

void dropLine(const std::string&) {}

constexpr int kTag = 0xF5;              // first byte of an entry
constexpr size_t kLongestFolder = 254;  // bytes, what the module takes

// Where the last row of an index leads, its last four bytes, low byte first; 0 when there is none. To a
// search a row that leads beyond the entries gives nothing, so a file that was cut short has to be noticed
// here.
uint32_t lastEntry(const std::string& index) {
  std::ifstream in(index, std::ios::binary);
  std::array<unsigned char, 4> bytes = {};
  in.seekg(-static_cast<std::streamoff>(bytes.size()), std::ios::end);
  if (!in.read(reinterpret_cast<char*>(bytes.data()), bytes.size())) return 0;
  return bytes[0] | bytes[1] << 8 | bytes[2] << 16 | static_cast<uint32_t>(bytes[3]) << 24;
}

std::string cutFile(const std::string& folder) {
  for (const std::string name : {"ej", "je"}) {
    struct stat about = {};
    if (stat((folder + "/" + name + ".dic").c_str(), &about) != 0) continue;
    if (lastEntry(folder + "/" + name + ".ix3") >= static_cast<uint64_t>(about.st_size)) return name + ".dic";
  }
  return {};
}

bool isTagAt(std::ifstream& file, uint32_t offset) {
  file.seekg(offset);
  return file.get() == kTag;
}

// The first file of entries where its first or its last one doesn't begin as entries do: a disk that lost
// what was written leaves zeros there.
std::string blankFile(const std::string& folder) {
  for (const std::string name : {"ej", "je"}) {
    std::ifstream entries(folder + "/" + name + ".dic", std::ios::binary);
    if (!entries) continue;
    const uint32_t last = lastEntry(folder + "/" + name + ".ix3");
    if (!isTagAt(entries, 0) || !isTagAt(entries, last)) return name + ".dic";
  }
  return {};
}

// Whether this process may not open as many files as a dictionary has.
bool lacksDescriptors() {
  std::vector<int> opened;
  while (opened.size() < kDictionaryFiles.size()) {
    const int fd = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    if (fd < 0) break;
    opened.push_back(fd);
  }
  const bool lacks = opened.size() < kDictionaryFiles.size() && (errno == EMFILE || errno == ENFILE);
  for (const int fd : opened) close(fd);
  return lacks;
}

Failure fewDescriptors() {
  return {kExitEnvironment, "few_descriptors", "too few files may be open at once for the dictionary",
          "Allow more, as with: ulimit -n 256"};
}

// The failure of a table that is there and is none; none where it says where the dictionary is.
Failure damagedPathTable() {
  if (pathTableNamesDictionary()) return {};
  return {kExitDamaged, "damaged_path_table", "the path table " + pathTableFile() + " can't be used",
          "Remove it: a new one is written at the next start."};
}

}  // namespace

DictionaryState dictionaryIn(const std::string& folder) {
  DictionaryState state;
  for (const char* name : kDictionaryFiles) {
    const std::string path = folder + "/" + name;
    struct stat about = {};
    if (access(path.c_str(), R_OK) == 0 && stat(path.c_str(), &about) == 0) {
      if (about.st_size == 0 && state.hollow.empty()) state.hollow = name;
      continue;
    }
    if (errno == ENOENT || errno == ENOTDIR) {
      ++state.absent;
      if (state.missing.empty()) state.missing = name;
    } else if (state.unreadable.empty()) {
      state.unreadable = name;
      state.error = errno;
    }
  }
  if (state.complete()) state.cut = cutFile(folder);
  if (state.complete()) state.blank = blankFile(folder);
  return state;
}

Failure dictionaryFailure(const std::string& folder, const DictionaryState& state) {
  if (state.none()) {
    return {kExitEnvironment, "no_dictionary", "there is no dictionary in " + folder + " yet",
            "Run: zavel dict build"};
  }
  if (!state.unreadable.empty()) {
    return {kExitEnvironment, "unreadable_dictionary",
            "the file " + state.unreadable + " of the dictionary in " + folder +
                " can't be read: " + std::strerror(state.error),
            "Check who may read it: ls -l " + folder};
  }
  if (!state.missing.empty()) {
    return {kExitDamaged, "damaged_dictionary",
            "the dictionary in " + folder + " lacks the file " + state.missing, "Run: zavel dict build"};
  }
  if (!state.hollow.empty()) {
    return {kExitDamaged, "damaged_dictionary",
            "the file " + state.hollow + " of the dictionary in " + folder + " is empty",
            "Run: zavel dict build"};
  }
  if (!state.cut.empty()) {
    return {kExitDamaged, "damaged_dictionary",
            "the file " + state.cut + " of the dictionary in " + folder +
                " is cut short, or its index is damaged",
            "Run: zavel dict build"};
  }
  if (!state.blank.empty()) {
    return {kExitDamaged, "damaged_dictionary",
            "the file " + state.blank + " of the dictionary in " + folder +
                " holds no entries where they should stand",
            "Run: zavel dict build"};
  }
  return {};
}

Failure noHome() {
  return {kExitEnvironment, "no_home", "no folder to work in: neither ZAVEL_ROOT nor HOME is set",
          "Set ZAVEL_ROOT to a folder that you can write to."};
}

Host::Host() : places_(findPlaces()) {
  const char* log = std::getenv("ZAVEL_LOG");
  if (!log || !*log) setLogSink(dropLine);
}

Host::~Host() {
  own_.reset();
  dictionaries_.reset();
  closeStore();
  zavelPathTerminate();
}

Failure Host::open() {
  if (places_.data.empty()) return noHome();
  if (lacksDescriptors()) return fewDescriptors();
  // The table that is there says where the dictionary is. Before there is one it is where it gets built.
  const bool firstStart = access(pathTableFile().c_str(), F_OK) != 0;
  dictionary_ = places_.dictionary;
  if (firstStart) {
    if (Failure failure = checkDictionary()) return failure;
  }
  const bool loaded = loadPathTable();
  if (!loaded && !firstStart) {
    if (Failure failure = damagedPathTable()) return failure;
  }
  if (!firstStart) {
    if (Failure failure = checkDictionary()) return failure;
  }
  if (loaded || standIn()) manager_ = dictionaries_->open();
  return openDictionary();
}

// False when the folders that the table names can't be used, in whole or in part: `dictionary_` then is what
// is known without them.
bool Host::loadPathTable() {
  const PathTableRoots roots = pathTableRoots(places_);
  const std::string table = defaultPathTablePath();
  // A table of other folders than these must not be loaded: loading would make them again.
  tableIsOfThesePlaces_ = writePathTableIfMissing(table, roots) && renewPathTable(table, roots);
  if (!tableIsOfThesePlaces_ || !loadDictionaries()) return false;
  return !searchesTranslation() || zavelPathTextEtoJEngine();
}

// Loads a table that is in memory alone, with a temporary folder for what can't be made.
bool Host::standIn() {
  if (!temporary_.make()) return false;
  Value table;
  if (!tableIsOfThesePlaces_ || !platform_.propertyLists().readFile(pathTableFile(), &table)) {
    table = defaultPathTable(pathTableRoots(places_));
  }
  dictionaries_.reset();
  closeStore();
  platform_.propertyLists().pretend(pathTableFile(), standInTable(table, temporary_.path()));
  return loadDictionaries();
}

void Host::startStore() {
  const std::string damage = openStore(platform_);
  if (!damage.empty() && damage != storeDamage_) warn(damage);
  storeDamage_ = damage;
}

bool Host::loadDictionaries() {
  startStore();
  // The styles are for the translation dictionary's program alone, and reading them is no small part of a
  // start.
  const std::string styles = places_.config + "/ZavelStyle.plist";
  if (!searchesTranslation() && storage().exists(styles))
    platform_.propertyLists().pretend(styles, Value::Dict());
  dictionaries_ = std::make_unique<Dictionaries>(platform_);
  settleStyles();
  const char* dictionary = zavelPathKenkyuDicFolderURL();
  dictionary_ = dictionary ? dictionary : placesInUse().dictionary;
  while (dictionary_.size() > 1 && dictionary_.back() == '/') dictionary_.pop_back();
  return dictionary && zavelPathCacheFolderURL();
}

// The styles are where the path table says. Work paths were settled without those that are written now.
void Host::settleStyles() {
  const char* styles = zavelPathTranslationStylePathURL();
  if (!styles) return;
  const std::string file = std::string(styles) + ".plist";
  const bool there = storage().exists(file);
  const std::string damage = provideStyles(file, searchesTranslation());
  if (!damage.empty()) warn(damage);
  if (!there || !damage.empty()) setWorkPaths();
}

Failure Host::checkDictionary() const {
  Failure failure = dictionaryFailure(dictionary_, dictionaryIn(dictionary_));
  if (failure && dictionary_ != places_.dictionary) {
    failure.message += "; the path table " + pathTableFile() + " names that folder";
    failure.hint = "Remove the path table if the folder has moved: a new one is written at the next start.";
  }
  return failure;
}

void Host::openAlone() {
  dictionaries_.reset();
  startStore();
  if (searchesTranslation()) {
    lostTranslation_ = {kExitEnvironment, "no_folder",
                        "the translation dictionary was not searched: no folder for its files can be made",
                        "Set TMPDIR to a folder that you can write to."};
  }
  own_ = std::make_unique<MirellDictionaryManager>();
  const SilentOutput silent;
  own_->InitializeDictionaries((dictionary_ + "/").c_str(), nullptr, nullptr, nullptr);
}

Failure Host::openDictionary() {
  if (dictionary_.size() > kLongestFolder) {
    return {kExitEnvironment, "long_path",
            "the dictionary's folder has a path of more than " + std::to_string(kLongestFolder) +
                " bytes: " + dictionary_,
            "Set ZAVEL_ROOT to a folder with a shorter path."};
  }
  if (!manager_) openAlone();
  if (manager().initialized) return {};
  return {kExitDamaged, "damaged_dictionary", "the dictionary in " + dictionary_ + " is damaged",
          "Run: zavel dict verify, then zavel dict build"};
}

}  // namespace zavel::host
