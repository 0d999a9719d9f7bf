// Reads a whole book back as a host does, and compares it with its source: a source file for each part of it.
#ifndef MKBOOK_VERIFICATION_H
#define MKBOOK_VERIFICATION_H

#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "book/BookTypes.h"
#include "book/SDic.h"
#include "mkbook/BookFolder.h"
#include "mkbook/BookSource.h"
#include "mkbook/BookText.h"
#include "mkbook/Unifont.h"
#include "mkbook/WordKeys.h"
#include "mkdict/Faults.h"
#include "mkdict/Progress.h"
#include "mkdict/Summary.h"

namespace zavel::mkbook {

struct CloseBook {
  void operator()(void* book) const { SDicCloseDictionary(book); }
};
struct FreeBytes {
  void operator()(char* bytes) const { std::free(bytes); }
};

// What a function gives out.
struct OwnBytes {
  std::unique_ptr<char, FreeBytes> owner;
  uint32_t length = 0;

  std::string_view view() const { return {owner.get(), length}; }
  // Takes over what was given.
  void take(char* bytes) { owner.reset(bytes); }
};

inline bool before(const _SDICADDRESS& a, const _SDICADDRESS& b) {
  return a.block != b.block ? a.block < b.block : a.offset < b.offset;
}

inline bool same(const _SDICADDRESS& a, const _SDICADDRESS& b) {
  return !before(a, b) && !before(b, a);
}

// A way to search by words that entries have, and what they have.
struct TextSearch {
  const char* method;  // its sign in queries
  std::vector<std::string> (BookSource::*words)(size_t number) const;
  const char* name;
};
// A way to search by words, and which parts of a word lead to its entry.
struct WordSearch {
  const char* method;
  enum class Part { kWhole, kBeginning, kEnd } part;
  const char* missing;  // told of a word that isn't found so
};
struct WordOfTexts {
  std::string word;             // as it first comes
  std::vector<size_t> entries;  // that have it
};

class Verification {
 public:
  // All borrowed. Throws Failure for a book that can't be opened.
  Verification(const BookSource& source, const std::string& folder, const Unifont& font,
               mkdict::Progress& progress, mkdict::Faults* faults)
      : source_(source), folder_(folder), font_(font), progress_(progress), faults_(faults) {
    open();
  }

  // False when the progress was cancelled.
  bool run(mkdict::Summary* summary);

 private:
  // VerifyBook.cpp
  void open();
  bool walk();
  bool walkBack();
  bool compareTexts();
  void compareText(size_t number);
  void comparePublisher();
  int64_t numberAt(const _SDICADDRESS& address) const;
  int64_t numberOf(const Span& span) const;
  void fault(size_t entry, const std::string& message) { faults_->add(kBodyFile, entry, message); }

  // Verification_Searches.cpp
  bool askWords(const WordSearch& search);
  bool askTextWords(const TextSearch& search, uint64_t* asked);
  bool askFields();
  void collectFields(size_t number, size_t form, std::map<std::string, WordOfTexts>* expected) const;
  void compareForms();
  bool choicesAre(const std::vector<Choice>& choices, const _SDICMULTIREFLIST* list) const;
  std::string queryFor(const std::string& word, bool end) const;
  std::vector<size_t> entriesFor(const std::string& query);

  // Verification_Media.cpp
  void compareGlyphs();
  void compareMedia(const char* bytes, const std::vector<size_t>& tags, const std::vector<size_t>& media,
                    size_t number);
  bool isMedium(const char* tag, size_t medium);
  void walkMenus(bool pictures);
  bool readMenu(bool pictures, const _SDICADDRESS* at, OwnBytes* bytes);
  std::vector<size_t> compareMenu(size_t menu, const OwnBytes& bytes, std::vector<_SDICADDRESS>* items);
  void compareIcons();

  const BookSource& source_;
  std::string folder_;
  const Unifont& font_;
  mkdict::Progress& progress_;
  mkdict::Faults* faults_;
  std::unique_ptr<void, CloseBook> book_;
  CustomTable table_;
  std::vector<_SDICADDRESS> places_;
  WordTable words_;
  uint64_t asked_ = 0, keywordsAsked_ = 0, crossWordsAsked_ = 0, fieldsAsked_ = 0, menusWalked_ = 0;
  std::vector<Menu> menus_ = source_.menus();
  std::vector<MultiSearch> forms_ = source_.forms();
  std::vector<MediumShape> media_ = source_.media();
  std::vector<bool> sameMedia_ = std::vector<bool>(media_.size());  // of these the bytes were compared
};

}  // namespace zavel::mkbook

#endif
