// A small compilation that has something for every index, and its files.
#ifndef TESTS_MKDICT_SMALLSET_H
#define TESTS_MKDICT_SMALLSET_H

#include <map>
#include <string>

#include "mkdict/BasicSet.h"
#include "support/DicWriter.h"

namespace zavel::mkdict {

inline Compilation smallCompilation() {
  Compilation c;
  for (const char* word : {"apple", "apply", "ax", "go"}) {
    c.english.push_back({word, test::entryE(word, "名", "りんご"), 0});
  }
  c.derived.push_back({"applied", {1}, 0});
  c.katu.push_back({{"went", "go"}, test::sjis("go:現,went:過")});
  const auto japanese = [&c](const char* kana, const char* kanji) {
    c.japanese.push_back({test::sjis(kana), test::sjis(kanji), test::entryJ(kana, kanji, "x"), 0});
  };
  japanese("いぬ", "犬");
  japanese("あ", "");
  japanese("あいさつ", "挨拶");
  japanese("あいさつする", "挨拶する");
  return c;
}

inline std::map<std::string, std::string> filesOf(Compilation& compilation) {
  Progress progress;
  std::map<std::string, std::string> files;
  for (SetFile& file : makeBasicSet(compilation, progress)) files[file.name] = std::move(file.bytes);
  return files;
}

inline std::map<std::string, std::string> smallSet() {
  Compilation compilation = smallCompilation();
  return filesOf(compilation);
}

inline void writeSet(const std::string& folder, const std::map<std::string, std::string>& files) {
  for (const auto& [name, bytes] : files) test::writeFile(folder + "/" + name, bytes);
}

}  // namespace zavel::mkdict

#endif
