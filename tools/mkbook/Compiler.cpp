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
#include "mkbook/JisTable.h"
#include "mkbook/MediaWriter.h"
#include "mkbook/MenuWriter.h"
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
constexpr size_t kLongestInfo = 240;  // a reader takes 256 bytes
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
        forms_(source.forms()),
        media_(source.media()),
        menus_(source.menus(), false),
        pictureMenus_(source.menus(), true) {
    for (const MultiSearch& form : forms_) fields_.emplace_back(form, characters_);
  }

  bool run(const BookIdentity& identity);

 private:
  bool readWords();
  bool layOut();
  void placeRegions();
  bool writeText();
  void writeMenus();
  bool writeIndexes();
  void writeMedia();
  void writeForms();
  std::string info() const;
  void fileWords(const BookEntry& entry, const _SDICADDRESS& address);
  void fileTextWords(size_t number);
  void writeFonts();
  void writeCatalog(const BookIdentity& identity);
  void countReferences(const std::vector<Span>& spans);
  void countReferences(const std::vector<Line>& lines);
  void account();
  bool hasMenus() const { return !menus_.empty(); }
  uint64_t textSize() const { return places_.back() + kEnd.size() + (hasMenus() ? kBegin.size() : 0); }
  uint32_t textBlocks() const { return static_cast<uint32_t>((textSize() + kBlock - 1) / kBlock); }
  _SDICADDRESS addressOf(size_t entry) const;
  std::optional<_SDICADDRESS> placeOf(const Span& span);
  void addRecord(uint16_t kind, uint32_t blocks, const IndexFlags& flags, const std::string& name);

  const BookSource& source_;
  BookFolder& folder_;
  mkdict::Progress& progress_;
  mkdict::Summary* summary_;
  CustomCharacters characters_;
  std::vector<MultiSearch> forms_;
  std::vector<MultiSearchWriter> fields_;
  MediaWriter media_;
  MenuWriter menus_, pictureMenus_;
  const BodyWriter::Resolver resolver_ = [this](const Span& span) { return placeOf(span); };
  BodyWriter writer_{characters_, resolver_, &media_};
  WordTable words_;
  WordIndexes indexes_;
  std::vector<uint64_t> places_;  // of entries, bytes from the text's beginning; then its end
  bool placed_ = false;           // whether all of them are known
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

// Where a reference leads. Until all places are known, to the book's beginning: places need lengths alone,
// and those depend on which references lead somewhere, not on where.
std::optional<_SDICADDRESS> Compilation::placeOf(const Span& span) {
  if (span.kind == Span::Kind::kMenu) {
    const std::optional<_SDICADDRESS> menu = menus_.addressOf(span.target);
    return menu ? menu : pictureMenus_.addressOf(span.target);
  }
  const int64_t entry = span.entry >= 0 ? span.entry : words_.find(characters_.codes(span.target));
  if (entry < 0) return std::nullopt;
  return placed_ ? addressOf(static_cast<size_t>(entry)) : _SDICADDRESS{0, 0};
}

bool Compilation::layOut() {
  progress_.stage("laying out", source_.size());
  uint64_t place = kBegin.size();
  for (size_t i = 0; i < source_.size(); ++i) {
    if (progress_.cancelled()) return false;
    places_.push_back(place);
    const BookEntry entry = source_.entry(i);
    place += writer_.entry(entry).size();
    fileWords(entry, addressOf(i));
    fileTextWords(i);
    for (size_t form = 0; form < forms_.size(); ++form)
      fields_[form].add(source_.fieldValues(i, form), addressOf(i));
    countReferences(entry.note);
    countReferences(entry.lines);
    progress_.advance(i + 1);
  }
  places_.push_back(place);
  placed_ = true;
  placeRegions();
  return true;
}

// Behind the text stand the menus, then pictures and sounds, then the indexes.
void Compilation::placeRegions() {
  if (textSize() >> kBlockShift >= kMostBlocks)
    throw Failure(mkdict::kExitDamaged, "too_large", "the text is too long for a book",
                  "Take a smaller source.");
  for (const Menu& menu : source_.menus()) countReferences(menu.lines);
  const uint32_t menus = menus_.place(kFirstBlock + textBlocks(), writer_);
  media_.place(pictureMenus_.place(menus, writer_));
}

void Compilation::countReferences(const std::vector<Line>& lines) {
  for (const Line& line : lines) countReferences(line.spans);
}

void Compilation::countReferences(const std::vector<Span>& spans) {
  for (const Span& span : spans) {
    countReferences(span.inside);
    if (span.kind != Span::Kind::kReference) continue;
    if (placeOf(span)) {
      summary_->count("references");
    } else {
      summary_->leftOut("references to words that have no entry, written as plain text",
                        span.target + (span.line == 0 ? "" : " (line " + std::to_string(span.line) + ")"));
    }
  }
}

bool Compilation::writeText() {
  progress_.stage("writing the text", source_.size());
  RegionFile file(folder_.path(kBodyFile), textBlocks());
  file.append(kBegin);
  for (size_t i = 0; i < source_.size(); ++i) {
    if (progress_.cancelled()) return false;
    const std::string entry = writer_.entry(source_.entry(i));
    if (entry.size() != places_[i + 1] - places_[i])
      throw std::logic_error("an entry changed while it was read");
    file.append(entry);
    progress_.advance(i + 1);
  }
  file.append(kEnd);
  // Who asks for the first menu looks one word ahead of its region for what tells that a text begins there.
  if (hasMenus()) {
    file.append(std::string(uint64_t{textBlocks()} * kBlock - textSize(), '\0'));
    file.append(kBegin);
  }
  file.finish();
  summary_->figure("bytes of text", textSize());
  summary_->figure("bytes of packed text", file.size());
  addRecord(kKindHonbun, file.blocks(), {}, kBodyFile);
  return true;
}

void Compilation::writeMenus() {
  const struct {
    const MenuWriter& menus;
    uint16_t kind;
    const char* name;
  } kinds[] = {{menus_, kKindMenu, kMenuFile}, {pictureMenus_, kKindColorMenu, kPictureMenuFile}};
  for (const auto& [menus, kind, name] : kinds) {
    if (menus.empty()) continue;
    const std::string bytes = menus.bytes(writer_);
    RegionFile file(folder_.path(name), static_cast<uint32_t>((bytes.size() + kBlock - 1) / kBlock));
    file.append(bytes);
    file.finish();
    addRecord(kind, file.blocks(), {}, name);
  }
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
  return true;
}

void Compilation::writeMedia() {
  const std::vector<MediumShape> media = source_.media();
  if (media.empty()) return;
  progress_.stage("writing pictures and sounds");
  for (const CatalogRecord& record : media_.write(source_, folder_)) {
    records_.push_back(record);
    nextBlock_ = record.last + 1;
  }
}

void Compilation::writeForms() {
  size_t fields = 0;
  for (size_t i = 0; i < forms_.size(); ++i) {
    const std::string name = multiFile(i);
    fields_[i].settle();
    RegionFile file(folder_.path(name), fields_[i].blocks());
    fields_[i].write(nextBlock_, file);
    file.finish();
    addRecord(kKindMultiSearch, file.blocks(), {}, name);
    fields += forms_[i].fields.size();
  }
  if (!forms_.empty()) summary_->figure("fields of search forms", fields);
}

// What the catalog has no room for. Names of forms are EUC-JP, as their labels are.
std::string Compilation::info() const {
  std::string out = "[GENERAL]\nSRCINFO=" + firstCharacters(source_.publisher(), kLongestInfo) +
                    "\nSRCVER=" + std::to_string(source_.version()) + "\n";
  for (size_t i = 0; i < forms_.size(); ++i) {
    out += std::string("MUL") + "0123456789ABCDEF"[i] + "NAME=" + eucOf(forms_[i].name) + "\n";
  }
  return out;
}

void Compilation::addRecord(uint16_t kind, uint32_t blocks, const IndexFlags& flags,
                            const std::string& name) {
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
  if (platform().encoding().fromSjisLossy(catalog.storedTitle()) != identity.title)
    summary_->leftOut("titles that a catalog can't hold as they are", identity.title);
  catalog.identity = identity.number != 0 ? identity.number : identityOf(identity.title);
  catalog.records = records_;
  catalog.largeIcon = source_.largeIcon().empty() ? largeBookIcon() : source_.largeIcon();
  catalog.smallIcon = source_.smallIcon().empty() ? smallBookIcon() : source_.smallIcon();
  folder_.write(kInfoFile, info());
  folder_.write(kCatalogFile, catalog.bytes());
}

void Compilation::account() {
  const std::vector<MediumShape> media = source_.media();
  const auto sounds = std::count_if(media.begin(), media.end(), [](const MediumShape& shape) {
    return shape.kind == MediumShape::Kind::kSound;
  });
  if (!source_.menus().empty()) summary_->figure("menus", source_.menus().size());
  if (!media.empty()) {
    summary_->figure("pictures", media.size() - static_cast<size_t>(sounds));
    summary_->figure("sounds", static_cast<size_t>(sounds));
  }
  summary_->figure("custom characters, full width", characters_.count(true));
  summary_->figure("custom characters, half width", characters_.count(false));
  for (const char32_t character : characters_.lacking())
    summary_->leftOut("characters without code or glyph, written as 〓", mkdict::namedCharacter(character));
}

bool Compilation::run(const BookIdentity& identity) {
  summary_->figure("entries", source_.size());
  if (!readWords() || !layOut() || !writeText()) return false;
  writeMenus();
  writeMedia();
  if (!writeIndexes()) return false;
  writeForms();
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
