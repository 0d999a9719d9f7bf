// Tests: tests/mkdict/BasicSetTest.cpp.
#include "mkdict/BasicSet.h"

#include <functional>
#include <stdexcept>
#include <string_view>

#include "engine/ChangeMidasi.h"
#include "engine/DicFormat.h"
#include "engine/MidasiCheck.h"
#include "mkdict/DicFileWriter.h"
#include "mkdict/IndexWriter.h"
#include "mkdict/ToShiftJis.h"

namespace zavel::mkdict {
namespace {

using engine::ChangeMidasi;
using engine::kOk;

// The word of an entry as messages name it.
using Naming = std::function<std::string(uint32_t entry)>;

// "English index: " + why.
std::string reasonOf(RowFault fault, const std::string& index) {
  switch (fault) {
    case RowFault::kEmptyKey:
      return index + ": nothing left of the word once its marks are dropped";
    case RowFault::kBadKey:
      return index + ": broken characters";
    case RowFault::kFullBlock:
      return index + ": more frequent words fill the block";
    case RowFault::kFullTable:
      return index + ": more frequent beginnings fill the table";
  }
  return index;
}

// Those of `rows` whose entries no row of `others` leads to.
std::vector<IndexRow> rowsWithout(const std::vector<IndexRow>& rows, const std::vector<IndexRow>& others,
                                  size_t entries) {
  std::vector<bool> reached(entries, false);
  for (const IndexRow& row : others) reached[row.entry] = true;
  std::vector<IndexRow> left;
  for (const IndexRow& row : rows) {
    if (!reached[row.entry]) left.push_back(row);
  }
  return left;
}

class Builder {
 public:
  Builder(Compilation& compilation, Progress& progress) : in_(compilation), progress_(progress) {}

  std::vector<SetFile> build();

 private:
  void buildEnglish();
  void buildDerived();
  void buildKatu();
  void buildJapanese();

  // Appends the entries in the order of `rows`, freeing their texts.
  template <class Entries>
  void layOut(const std::vector<IndexRow>& rows, Entries& entries, DicFileWriter& dic);
  template <class Entry>
  bool sound(const Entry& entry, const std::string& name);
  void arrange(IndexWriter& index, const std::string& name, const Naming& naming);
  void addIndex(const std::string& stem, const IndexWriter& index, const std::vector<uint32_t>& offsets);
  void addFile(const std::string& name, std::string bytes) { files_.push_back({name, std::move(bytes)}); }

  Compilation& in_;
  Progress& progress_;
  std::vector<SetFile> files_;
  std::vector<uint32_t> englishOffsets_;  // entries of ej.dic, for the derived words
};

template <class Entry>
bool Builder::sound(const Entry& entry, const std::string& name) {
  const char* fault = DicFileWriter::fault(entry.text);
  if (fault != nullptr) in_.summary.leftOut(fault, name);
  return fault == nullptr;
}

void Builder::arrange(IndexWriter& index, const std::string& name, const Naming& naming) {
  index.arrange([&](const IndexRow& row, RowFault fault) {
    in_.summary.leftOut(reasonOf(fault, name), naming(row.entry));
  });
}

template <class Entries>
void Builder::layOut(const std::vector<IndexRow>& rows, Entries& entries, DicFileWriter& dic) {
  for (const IndexRow& row : rows) {
    std::string& text = entries[row.entry].text;
    if (!dic.append(row.entry, text)) throw std::length_error("the entries pass 4 GiB");
    std::string().swap(text);
  }
}

void Builder::addIndex(const std::string& stem, const IndexWriter& index,
                       const std::vector<uint32_t>& offsets) {
  IndexWriter::Files files = index.write(offsets);
  addFile(stem + ".ix3", std::move(files.ix3));
  addFile(stem + ".idx", std::move(files.idx));
}

void Builder::buildEnglish() {
  progress_.stage("English index", in_.english.size());
  IndexWriter index(engine::kTypeE);
  for (size_t i = 0; i < in_.english.size(); ++i) {
    progress_.advance(i);
    const EnglishEntry& entry = in_.english[i];
    if (engine::ChkMidasiStrE(entry.word.c_str()) != kOk) {
      in_.summary.leftOut("English words with characters that no query can hold", toUtf8(entry.word));
    } else if (sound(entry, entry.word)) {
      index.add({engine::ChangeMidasiStrE(entry.word), static_cast<uint32_t>(i), entry.rank});
    }
  }
  arrange(index, "English index", [this](uint32_t entry) { return in_.english[entry].word; });
  DicFileWriter dic(in_.english.size());
  layOut(index.rows(), in_.english, dic);
  in_.summary.figure("English entries", dic.count());
  englishOffsets_ = dic.offsets();
  addFile("ej.dic", dic.takeBytes());
  addIndex("ej", index, englishOffsets_);
}

void Builder::buildDerived() {
  progress_.stage("derived words", in_.derived.size());
  IndexWriter index(engine::kTypeHase);
  std::vector<std::string> forms;  // by row number, for messages
  std::vector<uint32_t> offsets;
  for (const DerivedForm& form : in_.derived) {
    if (engine::ChkMidasiStrE(form.form.c_str()) != kOk) {
      in_.summary.leftOut("derived words with characters that no query can hold", toUtf8(form.form));
      continue;
    }
    for (size_t entry : form.entries) {
      if (entry >= englishOffsets_.size() || englishOffsets_[entry] == DicFileWriter::kNowhere) {
        in_.summary.leftOut("derived words of entries left out", form.form);
        continue;
      }
      index.add({engine::ChangeMidasiStrE(form.form), static_cast<uint32_t>(offsets.size()), form.rank});
      offsets.push_back(englishOffsets_[entry]);
      forms.push_back(form.form);
    }
  }
  arrange(index, "derived words", [&forms](uint32_t row) { return forms[row]; });
  in_.summary.figure("derived words, rows", index.rows().size());
  addIndex("hase", index, offsets);
}

// A record that readers find: braces around the items and nowhere else, whole within their window.
bool soundRecord(const KatuRecord& record) {
  const bool braces = record.items.find_first_of("{}") != std::string::npos;
  return !braces && !record.items.empty() && record.items.size() + 2 <= engine::kKatuWindow;
}

std::string scrambled(const std::string& items) {
  std::string out = "{" + items + "}";
  for (char& c : out) c = static_cast<char>(static_cast<uint8_t>(c) - engine::kKatuShift);
  return out;
}

void Builder::buildKatu() {
  progress_.stage("irregular forms", in_.katu.size());
  IndexWriter index(engine::kTypeKatu);
  std::string dic;
  std::vector<uint32_t> offsets(in_.katu.size(), 0);
  size_t kept = 0;
  for (size_t i = 0; i < in_.katu.size(); ++i) {
    const KatuRecord& record = in_.katu[i];
    if (!soundRecord(record)) {
      in_.summary.leftOut("irregular paradigms that do not fit a record", toUtf8(record.items.substr(0, 40)));
      continue;
    }
    offsets[i] = static_cast<uint32_t>(dic.size());
    dic += scrambled(record.items);
    ++kept;
    for (const std::string& form : record.forms) {
      index.add({engine::ChangeMidasiStrE(form), static_cast<uint32_t>(i), static_cast<uint32_t>(i)});
    }
  }
  arrange(index, "irregular forms", [this](uint32_t entry) { return toUtf8(in_.katu[entry].items); });
  in_.summary.figure("irregular paradigms", kept);
  in_.summary.figure("irregular forms, rows", index.rows().size());
  addFile("katu.dic", std::move(dic));
  addIndex("katu", index, offsets);
}

void Builder::buildJapanese() {
  progress_.stage("Japanese index", in_.japanese.size());
  IndexWriter kana(engine::kTypeKana), kanji(engine::kTypeKji);
  const Naming byKana = [this](uint32_t entry) { return toUtf8(in_.japanese[entry].kana); };
  const Naming byKanji = [this](uint32_t entry) { return toUtf8(in_.japanese[entry].kanji); };
  for (size_t i = 0; i < in_.japanese.size(); ++i) {
    progress_.advance(i);
    const JapaneseEntry& entry = in_.japanese[i];
    const auto number = static_cast<uint32_t>(i);
    std::string key;
    if (!sound(entry, toUtf8(entry.kana.empty() ? entry.kanji : entry.kana))) continue;
    if (!entry.kana.empty() && ChangeMidasi(entry.kana, engine::kTypeKana, &key) == kOk) {
      kana.add({key, number, entry.rank});
    }
    if (!entry.kanji.empty() && ChangeMidasi(entry.kanji, engine::kTypeKji, &key) == kOk) {
      kanji.add({key, number, entry.kanjiRank});
    }
  }
  arrange(kana, "by reading", byKana);
  arrange(kanji, "by written form", byKanji);
  DicFileWriter dic(in_.japanese.size());
  // Last the entries by reading, so that the last row of je.ix3 leads to the last entry.
  layOut(rowsWithout(kanji.rows(), kana.rows(), in_.japanese.size()), in_.japanese, dic);
  layOut(kana.rows(), in_.japanese, dic);
  in_.summary.figure("Japanese entries", dic.count());
  in_.summary.figure("Japanese entries by reading, rows", kana.rows().size());
  in_.summary.figure("Japanese entries by written form, rows", kanji.rows().size());
  in_.summary.figure("beginnings of written forms", kanji.prefixes());
  const std::vector<uint32_t> offsets = dic.offsets();
  addFile("je.dic", dic.takeBytes());
  addIndex("je", kana, offsets);
  addIndex("ke", kanji, offsets);
}

std::vector<SetFile> Builder::build() {
  for (const auto step :
       {&Builder::buildEnglish, &Builder::buildDerived, &Builder::buildKatu, &Builder::buildJapanese}) {
    (this->*step)();
    if (progress_.cancelled()) return {};
  }
  uint64_t bytes = 0;
  for (const SetFile& file : files_) bytes += file.bytes.size();
  in_.summary.figure("bytes in thirteen files", bytes);
  return std::move(files_);
}

}  // namespace

const std::vector<std::string>& basicSetNames() {
  static const std::vector<std::string> names = {"ej.dic",   "ej.ix3",   "ej.idx",   "hase.ix3", "hase.idx",
                                                 "katu.dic", "katu.ix3", "katu.idx", "je.dic",   "je.ix3",
                                                 "je.idx",   "ke.ix3",   "ke.idx"};
  return names;
}

std::vector<SetFile> makeBasicSet(Compilation& compilation, Progress& progress) {
  return Builder(compilation, progress).build();
}

std::string sourcesText(const std::vector<Source>& sources) {
  std::string out;
  for (const Source& source : sources) {
    if (!out.empty()) out += "\n";
    out += "Source: " + source.name + "\n";
    if (!source.version.empty()) out += "Version: " + source.version + "\n";
    out += "Licence: " + source.licence + "\nUsed for: " + source.used + "\n";
  }
  return out;
}

}  // namespace zavel::mkdict
