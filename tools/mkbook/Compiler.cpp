// Tests: tests/mkbook/BuildTest.cpp
#include "mkbook/Compiler.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <vector>

#include "book/BookFormat.h"
#include "foundation/ByteReader.h"
#include "mkbook/BodyWriter.h"
#include "mkbook/Catalog.h"
#include "mkbook/CustomCharacters.h"
#include "mkbook/Failure.h"
#include "mkbook/IndexBuilder.h"
#include "mkbook/MultiSearchWriter.h"
#include "mkbook/WordIndexes.h"
#include "mkbook/WordKeys.h"
#include "mkdict/ToShiftJis.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"

namespace zavel::mkbook {
namespace {

using namespace book;

constexpr uint32_t kOwnNumbers = 0x40000000;
constexpr size_t kLongestInfo = 240;        // a reader takes 256 bytes
constexpr uint64_t kMostBlocks = 99999999;  // that packed decimal of four bytes can tell
constexpr std::string_view kBegin("\x1F\x02", 2), kEnd("\x1F\x03", 2);

std::string firstCharacters(const std::string& utf8, size_t bytes) {
  if (utf8.size() <= bytes) return utf8;
  size_t end = bytes;
  while (end > 0 && (static_cast<unsigned char>(utf8[end]) & 0xC0) == 0x80) --end;
  return utf8.substr(0, end);
}

std::vector<std::string> withoutRepetitions(std::vector<std::string> words) {
  std::sort(words.begin(), words.end());
  words.erase(std::unique(words.begin(), words.end()), words.end());
  return words;
}

class Compilation {
 public:
  Compilation(const BookSource& source, const Unifont& font, BookFolder& folder, mkdict::Progress& progress,
              mkdict::Summary* summary)
      : source_(source),
        folder_(folder),
        progress_(progress),
        summary_(summary),
        characters_(font),
        form_(source.multiSearch()),
        fields_(form_, characters_) {}

  bool run(const BookIdentity& identity);

 private:
  bool readWords();
  bool layOut();
  bool writeText();
  bool writeIndexes();
  void writeForm();
  void fileWords(const BookEntry& entry, const _SDICADDRESS& address);
  void fileTextWords(size_t number);
  void writeFonts();
  void writeCatalog(const BookIdentity& identity);
  void countReferences(const BookEntry& entry);
  void account();
  _SDICADDRESS addressOf(size_t entry) const;
  void addRecord(uint16_t kind, uint32_t blocks, const IndexFlags& flags, const char* name);

  const BookSource& source_;
  BookFolder& folder_;
  mkdict::Progress& progress_;
  mkdict::Summary* summary_;
  CustomCharacters characters_;
  MultiSearch form_;
  MultiSearchWriter fields_;
  WordTable words_;
  WordIndexes indexes_;
  std::vector<uint64_t> places_;  // of entries, bytes from the text's beginning; then its end
  std::vector<CatalogRecord> records_;
  uint32_t nextBlock_ = kFirstBlock;
};

bool Compilation::readWords() {
  progress_.stage("reading words", source_.size());
  for (size_t i = 0; i < source_.size(); ++i) {
    if (progress_.cancelled()) return false;
    for (const std::string& word : source_.entry(i).words) words_.add(characters_.codes(word), i);
    progress_.advance(i + 1);
  }
  return true;
}

_SDICADDRESS Compilation::addressOf(size_t entry) const {
  const uint64_t place = places_[entry];
  return {static_cast<uint32_t>(kFirstBlock + (place >> kBlockShift)),
          static_cast<uint32_t>(place & kBlockMask)};
}

// Places need lengths alone, and those don't depend on where references lead.
bool Compilation::layOut() {
  const BodyWriter::Resolver anywhere = [this](const std::string& word) -> std::optional<_SDICADDRESS> {
    return words_.find(characters_.codes(word)) < 0 ? std::nullopt : std::optional(_SDICADDRESS{0, 0});
  };
  BodyWriter writer(characters_, anywhere);
  progress_.stage("laying out", source_.size());
  uint64_t place = kBegin.size();
  for (size_t i = 0; i < source_.size(); ++i) {
    if (progress_.cancelled()) return false;
    places_.push_back(place);
    const BookEntry entry = source_.entry(i);
    place += writer.entry(entry).size();
    fileWords(entry, addressOf(i));
    fileTextWords(i);
    fields_.add(source_.fieldValues(i), addressOf(i));
    countReferences(entry);
    progress_.advance(i + 1);
  }
  places_.push_back(place);
  if ((place + kEnd.size()) >> kBlockShift >= kMostBlocks)
    throw Failure(mkdict::kExitDamaged, "too_large", "the text is too long for a book",
                  "Take a smaller source.");
  return true;
}

void Compilation::countReferences(const BookEntry& entry) {
  for (const Line& line : entry.lines) {
    for (const Span& span : line.spans) {
      if (span.kind != Span::Kind::kReference) continue;
      if (words_.find(characters_.codes(span.target)) < 0) {
        summary_->leftOut("references to words that have no entry, written as plain text", span.target);
      } else {
        summary_->count("references");
      }
    }
  }
}

bool Compilation::writeText() {
  const BodyWriter::Resolver resolver = [this](const std::string& word) -> std::optional<_SDICADDRESS> {
    const int64_t entry = words_.find(characters_.codes(word));
    return entry < 0 ? std::nullopt : std::optional(addressOf(static_cast<size_t>(entry)));
  };
  BodyWriter writer(characters_, resolver);
  progress_.stage("writing the text", source_.size());
  const uint64_t bytes = places_.back() + kEnd.size();
  RegionFile file(folder_.path(kBodyFile), static_cast<uint32_t>((bytes + kBlock - 1) / kBlock));
  file.append(kBegin);
  for (size_t i = 0; i < source_.size(); ++i) {
    if (progress_.cancelled()) return false;
    const std::string entry = writer.entry(source_.entry(i));
    if (entry.size() != places_[i + 1] - places_[i])
      throw std::logic_error("an entry changed while it was read");
    file.append(entry);
    progress_.advance(i + 1);
  }
  file.append(kEnd);
  file.finish();
  summary_->figure("bytes of text", bytes);
  summary_->figure("bytes of packed text", file.size());
  addRecord(kKindHonbun, file.blocks(), {}, kBodyFile);
  return true;
}

void Compilation::fileWords(const BookEntry& entry, const _SDICADDRESS& address) {
  for (const std::string& word : entry.words) {
    bool filed = false;
    for (const std::string& spelling : spellings(word, characters_)) filed |= indexes_.add(spelling, address);
    if (!filed) summary_->leftOut("words of signs alone, which no search can ask for", word);
  }
}

// A word that an entry has several times is filed once.
void Compilation::fileTextWords(size_t number) {
  const _SDICADDRESS address = addressOf(number);
  for (const std::string& word : withoutRepetitions(source_.keywords(number)))
    for (const std::string& spelling : spellings(word, characters_)) indexes_.addKeyword(spelling, address);
  for (const std::string& word : withoutRepetitions(source_.crossWords(number)))
    for (const std::string& spelling : spellings(word, characters_)) indexes_.addCross(spelling, address);
}

bool Compilation::writeIndexes() {
  progress_.stage("sorting words", 0);
  indexes_.settle();
  const std::vector<WordIndexes::File> files = indexes_.files();
  progress_.stage("writing indexes", files.size());
  for (size_t i = 0; i < files.size(); ++i) {
    if (progress_.cancelled()) return false;
    const IndexBuilder& index = *files[i].index;
    RegionFile file(folder_.path(files[i].name), index.blocks());
    index.write(nextBlock_, file);
    file.finish();
    addRecord(index.kind(), file.blocks(), index.flags(), files[i].name);
    progress_.advance(i + 1);
  }
  summary_->figure("keys", indexes_.words());
  summary_->figure("keywords", indexes_.keywords());
  summary_->figure("words of texts", indexes_.crossWords());
  if (!form_.fields.empty()) writeForm();
  return true;
}

void Compilation::writeForm() {
  fields_.settle();
  RegionFile file(folder_.path(kMultiFile), fields_.blocks());
  fields_.write(nextBlock_, file);
  file.finish();
  addRecord(kKindMultiSearch, file.blocks(), {}, kMultiFile);
  summary_->figure("fields of the search form", form_.fields.size());
}

void Compilation::addRecord(uint16_t kind, uint32_t blocks, const IndexFlags& flags, const char* name) {
  records_.push_back({kind, nextBlock_, nextBlock_ + blocks - 1, flags, name});
  nextBlock_ += blocks;
}

void Compilation::writeFonts() {
  const struct {
    bool full;
    uint16_t kind;
    const char* name;
  } fonts[] = {{true, kKindFirstFont, kFullFontFile}, {false, kKindHalfWidthFont, kHalfFontFile}};
  for (const auto& [full, kind, name] : fonts) {
    if (characters_.count(full) == 0) continue;
    folder_.write(name, characters_.fontFile(full));
    records_.push_back({kind, 0, 0, {}, name});
  }
  folder_.write(kUniFile, characters_.uniFile());
}

void Compilation::writeCatalog(const BookIdentity& identity) {
  Catalog catalog;
  catalog.title = platform().encoding().toSjisLossy(identity.title).bytes();
  catalog.identity = identity.number != 0 ? identity.number : identityOf(identity.title);
  catalog.records = records_;
  catalog.largeIcon = largeBookIcon();
  catalog.smallIcon = smallBookIcon();
  folder_.write(kInfoFile, "[GENERAL]\nSRCINFO=" + firstCharacters(source_.publisher(), kLongestInfo) +
                               "\nSRCVER=1\n" +
                               (form_.fields.empty() ? "" : "MUL0NAME=" + form_.name + "\n"));
  folder_.write(kCatalogFile, catalog.bytes());
}

void Compilation::account() {
  summary_->figure("custom characters, full width", characters_.count(true));
  summary_->figure("custom characters, half width", characters_.count(false));
  for (const char32_t character : characters_.lacking())
    summary_->leftOut("characters without code or glyph, written as 〓", mkdict::namedCharacter(character));
}

bool Compilation::run(const BookIdentity& identity) {
  summary_->figure("entries", source_.size());
  if (!readWords() || !layOut() || !writeText() || !writeIndexes()) return false;
  writeFonts();
  writeCatalog(identity);
  account();
  return true;
}

}  // namespace

// Kept apart from the numbers of published books, for some of which the engine knows corrections.
uint32_t identityOf(const std::string& title) {
  uint32_t hash = 2166136261;
  for (const char c : title) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619;
  return kOwnNumbers | hash >> 2;
}

bool compileBook(const BookSource& source, const BookIdentity& identity, const Unifont& font,
                 BookFolder& folder, mkdict::Progress& progress, mkdict::Summary* summary) {
  return Compilation(source, font, folder, progress, summary).run(identity);
}

}  // namespace zavel::mkbook
