// Tests: tests/mkdict/VerifyTest.cpp.
#include "mkdict/Verify.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <vector>

#include "engine/ChangeMidasi.h"
#include "engine/DicFormat.h"
#include "engine/EngineAPI.h"
#include "engine/EngineStatus.h"
#include "foundation/ByteReader.h"
#include "foundation/Storage.h"
#include "mkdict/BasicSet.h"
#include "mkdict/EntryCheck.h"
#include "mkdict/IndexCheck.h"
#include "mkdict/ToShiftJis.h"
#include "mkdict/Utf8.h"

namespace zavel::mkdict {
namespace {

constexpr size_t kMostBytes = size_t{1} << 32;
constexpr size_t kSample = 500;  // words of each index that are looked up through the engine

// Foreign Shift_JIS as a message quotes it. What would steer a terminal becomes U+FFFD, as what is no
// character does.
std::string quoted(std::string_view sjis) {
  std::u32string codes = decodeUtf8(toUtf8(sjis)).value_or(std::u32string());
  for (char32_t& code : codes) {
    if (code < 0x20 || (code >= 0x7F && code < 0xA0)) code = 0xFFFD;
  }
  return "\"" + encodeUtf8(codes) + "\"";
}

// A block list of the engine, freed at the end.
class BlockList {
 public:
  ~BlockList() { GlobalFree(handle); }
  std::string_view bytes() const {
    return handle == nullptr ? std::string_view()
                             : std::string_view(static_cast<char*>(GlobalLock(handle)), size);
  }
  Handle handle = nullptr;
  uint32_t size = 0;
};

class Verification {
 public:
  Verification(std::string folder, Progress& progress, Summary* summary, Faults* faults)
      : folder_(std::move(folder)), progress_(progress), summary_(summary), faults_(faults) {}

  Verdict run();

 private:
  // A word that the engine is to find, and the entry that it is to give.
  struct Sample {
    uint16_t type;
    std::string word;
    std::string entry;
    std::string file;
    uint64_t at;
  };

  bool load();
  void checkIndex(uint16_t type, const std::string& stem, EntryCheck* entries);
  void checkKatu();
  std::string wordOf(uint16_t type, std::string_view entry) const;
  void checkKatuRow(const std::string& key, uint32_t offset, uint64_t at);
  void lookUp();
  bool finds(const Sample& sample);

  const std::string& file(const std::string& name) const { return files_.at(name); }

  std::string folder_;
  Progress& progress_;
  Summary* summary_;
  Faults* faults_;
  std::map<std::string, std::string> files_;
  std::vector<Sample> samples_;
};

bool Verification::load() {
  progress_.stage("reading", basicSetNames().size());
  for (const std::string& name : basicSetNames()) {
    const std::string path = folder_ + "/" + name;
    if (!storage().exists(path)) {
      faults_->add(name, 0, "the file is missing");
    } else if (!readWholeFile(path, kMostBytes, &files_[name])) {
      faults_->add(name, 0, "the file can't be read");
    }
    progress_.advance(files_.size());
  }
  return faults_->total() == 0;
}

// The word that an entry is to be found by in an index of `type`.
std::string Verification::wordOf(uint16_t type, std::string_view entry) const {
  if (type == engine::kTypeE) return EntryCheck::wordE(entry);
  return std::string(type == engine::kTypeKana ? EntryCheck::kana(entry) : EntryCheck::kanji(entry));
}

void Verification::checkIndex(uint16_t type, const std::string& stem, EntryCheck* entries) {
  const std::string ix3 = stem + ".ix3";
  IndexCheck index(type, stem, file(stem + ".idx"), file(ix3), faults_);
  progress_.stage("checking " + stem);
  std::vector<Sample> found;
  size_t rows = 0;
  const size_t step = std::max<size_t>(1, file(ix3).size() / 20 / kSample);  // a row takes some 20 bytes
  index.run([&](const std::string& key, uint32_t offset, uint64_t at) {
    progress_.advance(++rows);
    if (const char* fault = entries->reach(offset); fault != nullptr) {
      faults_->add(ix3, at, "entry at " + std::to_string(offset) + ": " + fault);
      return;
    }
    const std::string_view entry = entries->entry(offset);
    std::string word = type == engine::kTypeHase ? key : wordOf(type, entry);
    std::string filed;
    if (engine::ChangeMidasi(word, type, &filed) != engine::kOk || filed != key) {
      faults_->add(ix3, at, "filed under another key than its headword " + quoted(word) + " gives");
    } else if (rows % step == 0) {
      found.push_back({type, std::move(word), std::string(entry), ix3, at});
    }
  });
  samples_.insert(samples_.end(), found.begin(), found.end());
  summary_->figure(stem + ": blocks", index.blocks());
  summary_->figure(stem + ": rows", index.rows());
  if (index.deadBytes() != 0)
    faults_->add(ix3, 0, std::to_string(index.deadBytes()) + " bytes that no row leads to");
}

// A record stands scrambled at the offset, and one of its items is the form.
void Verification::checkKatuRow(const std::string& key, uint32_t offset, uint64_t at) {
  const std::string& dic = file("katu.dic");
  const auto fault = [&](const std::string& what) {
    faults_->add("katu.ix3", at, "record at " + std::to_string(offset) + ": " + what);
  };
  if (offset >= dic.size() || dic[offset] != engine::kKatuOpen) return fault("none begins there");
  std::string plain = dic.substr(offset + 1, engine::kKatuWindow - 1);
  const size_t end = plain.find(engine::kKatuClose);
  if (end == std::string::npos) return fault("no end within 512 bytes");
  plain.resize(end);
  for (char& c : plain) c = static_cast<char>(static_cast<uint8_t>(c) + engine::kKatuShift);
  static const std::string kLabels =
      "\x92\x50\x95\xA1\x8C\xB4\x94\xE4\x8D\xC5\x8C\xBB\x8E\x4F\x89\xDF\x95\xAA\x90\x69";  // 単複原比最現三過分進
  bool found = false;
  for (size_t begin = 0; begin <= plain.size();) {
    const size_t colon = plain.find(':', begin);
    const std::string label = colon == std::string::npos ? "" : plain.substr(colon + 1, 2);
    const size_t known = label.size() == 2 ? kLabels.find(label) : std::string::npos;
    if (known == std::string::npos || known % 2 != 0) return fault("an item without a known label");
    found = found || engine::ChangeMidasiStrE(plain.substr(begin, colon - begin)) == key;
    begin = colon + 4;
    if (begin <= plain.size() && plain[begin - 1] != ',') return fault("items not parted by a comma");
  }
  if (!found) fault("it does not hold the form " + quoted(key));
}

void Verification::checkKatu() {
  IndexCheck index(engine::kTypeKatu, "katu", file("katu.idx"), file("katu.ix3"), faults_);
  progress_.stage("checking katu");
  size_t rows = 0;
  index.run([&](const std::string& key, uint32_t offset, uint64_t at) {
    checkKatuRow(key, offset, at);
    if (++rows % 20 == 1) samples_.push_back({engine::kTypeKatu, key, "", "katu.ix3", at});
  });
  summary_->figure("katu: rows", index.rows());
  if (index.deadBytes() != 0) {
    faults_->add("katu.ix3", 0, std::to_string(index.deadBytes()) + " bytes that no row leads to");
  }
}

// Whether the engine gives the entry among those of the word; of a derived word any entry will do, since
// one of its own comes first.
bool Verification::finds(const Sample& sample) {
  std::string word = sample.word;
  BlockList list;
  if (sample.type == engine::kTypeKatu) {
    return GetKatuyo(word.c_str(), &list.size, &list.handle) == engine::kOk && list.size != 0;
  }
  const bool english = sample.type == engine::kTypeE || sample.type == engine::kTypeHase;
  const uint16_t status = english ? SerchImiE(word.data(), nullptr, 0, &list.size, &list.handle, 1)
                                  : SerchImiJ(word.data(), nullptr, 0, &list.size, &list.handle, 1);
  if (status != engine::kOk || list.size == 0) return false;
  return sample.type == engine::kTypeHase || list.bytes().find(sample.entry) != std::string_view::npos;
}

void Verification::lookUp() {
  progress_.stage("looking up", samples_.size());
  summary_->figure("words looked up", 0);
  const std::string prefix = folder_ + "/";
  const uint16_t status = InitAPI(prefix.c_str(), nullptr, nullptr);
  if (status == engine::kAlreadyOpen) return;
  if (status != engine::kOk) {
    faults_->add("ej.idx", 0, "the engine does not open the set: status " + std::to_string(status));
    return;
  }
  for (size_t i = 0; i < samples_.size() && !progress_.cancelled(); ++i) {
    progress_.advance(i);
    summary_->count("words looked up");
    const Sample& sample = samples_[i];
    if (!finds(sample))
      faults_->add(sample.file, sample.at, "the engine does not find " + quoted(sample.word));
  }
  EndAPI();
}

Verdict Verification::run() {
  if (!storage().isFolder(folder_)) return Verdict::kNoFolder;
  if (!load()) return Verdict::kDamaged;
  EntryCheck english("ej.dic", file("ej.dic"), faults_), japanese("je.dic", file("je.dic"), faults_);
  progress_.stage("checking entries");
  english.run();
  japanese.run();
  summary_->figure("English entries", english.entries());
  summary_->figure("Japanese entries", japanese.entries());
  checkIndex(engine::kTypeE, "ej", &english);
  checkIndex(engine::kTypeHase, "hase", &english);
  checkKatu();
  checkIndex(engine::kTypeKana, "je", &japanese);
  checkIndex(engine::kTypeKji, "ke", &japanese);
  english.reportUnreached();
  japanese.reportUnreached();
  if (faults_->total() == 0) lookUp();
  if (progress_.cancelled()) return Verdict::kCancelled;
  return faults_->total() == 0 ? Verdict::kGood : Verdict::kDamaged;
}

}  // namespace

Verdict verifySet(const std::string& folder, Progress& progress, Summary* summary, Faults* faults) {
  return Verification(folder, progress, summary, faults).run();
}

}  // namespace zavel::mkdict
