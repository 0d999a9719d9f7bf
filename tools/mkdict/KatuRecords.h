// The records of the conjugation dictionary. The engine inflects regular words by rules of its own, so a
// word gets a record where those rules come out wrong: irregular words, doubled consonants, forms that the
// rules lead back to another word ("planing" to "plan"). A record holds the whole paradigm of its part of
// speech, because it takes the place of what the rules make of that part of speech.
#ifndef MKDICT_KATURECORDS_H
#define MKDICT_KATURECORDS_H

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "mkdict/Compilation.h"
#include "mkdict/EnglishWord.h"
#include "mkdict/Inflection.h"
#include "mkdict/Pronunciation.h"

namespace zavel::mkdict {

class KatuRecords {
 public:
  // `inflection` is borrowed.
  explicit KatuRecords(const Inflection& inflection) : inflection_(inflection) {}

  // An entry of the set in the order in which a search of its key meets it. `text` is borrowed and read in
  // finish().
  struct Entry {
    std::string_view word, text;
    PartOfSpeech pos;
    Sounds sounds;
  };
  void add(const Entry& entry);

  // Works out all paradigms and records. The entries' texts may go away then.
  void finish();

  std::vector<KatuRecord> take() { return std::move(records_); }

  // After finish(): keys of base forms that a key is a form of, itself excluded. Empty for no form.
  std::vector<std::string> basesOf(const std::string& key) const;
  bool isForm(const std::string& key) const { return formsByKey_.contains(key); }
  size_t paradigms() const { return paradigms_.size(); }

 private:
  enum Group : uint8_t { kNounGroup = 1, kAdjectiveGroup = 2, kVerbGroup = 4 };  // as the engine's bits
  struct Item {
    std::string form;
    uint8_t code;  // 1 to 10
    bool operator<(const Item& other) const {
      return code != other.code ? code < other.code : form < other.form;
    }
    bool operator==(const Item& other) const = default;
  };
  struct Paradigm {
    std::string base;  // key
    Group group;
    bool byRule;                     // the engine's rules make the same of it
    std::vector<Item> items;         // sorted
    std::vector<std::string> filed;  // keys under which its record stands
  };
  struct Word {
    std::vector<Entry> entries;
  };

  // What is known of a key before its paradigms are made.
  struct Speakers {
    std::string base;  // the headword that the engine inflects; empty when no entry can inflect
    const Entry *noun = nullptr, *adjective = nullptr, *adverb = nullptr, *verb = nullptr;
    std::map<uint8_t, std::vector<Item>> byRule;  // what the engine makes of it, sorted, by group
  };
  static Speakers speakersOf(const Word& word);
  static void put(std::vector<Item>& items, uint8_t code, const Forms& forms, const std::string& base);
  static void putVerb(std::vector<Item>& items, const VerbForms& forms, const std::string& rest);
  void makeParadigms(const std::string& key, const Word& word);
  void nounParadigm(const std::string& key, const Speakers& speakers);
  void adjectiveParadigm(const std::string& key, const Speakers& speakers);
  void verbParadigm(const std::string& key, const Speakers& speakers);
  void take(const std::string& key, Group group, std::vector<Item> items, const Speakers& speakers);
  void addParadigm(const std::string& key, Group group, std::vector<Item> items, bool byRule);
  void addPhrase(const Entry& entry, const std::string& key);
  void fileUnreachable(Paradigm& paradigm);
  void closeOver();
  std::string reachedFrom(const std::string& key) const;
  bool isMute(const std::string& key) const;
  bool isBase(const std::string& key, Group group) const;
  void write(const Paradigm& paradigm);

  const Inflection& inflection_;  // borrowed
  std::map<std::string, Word> words_;
  std::unordered_map<std::string, uint8_t> groupsByKey_;  // of keys with entries
  std::vector<Paradigm> paradigms_;
  std::unordered_map<std::string, std::vector<size_t>> formsByKey_;  // paradigms with that form
  std::vector<KatuRecord> records_;
};

}  // namespace zavel::mkdict

#endif
