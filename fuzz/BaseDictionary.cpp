#include "BaseDictionary.h"

#include <algorithm>

#include "engine/ChangeMidasi.h"
#include "engine/DicFormat.h"
#include "support/DicWriter.h"

namespace zavel::fuzz {
namespace {

using test::DicWriter;
using test::sjis;
using test::tag;

std::string head(const std::string& word, int number) {
  return tag(0xF5D1) + "**" + tag(0xF4B5) + std::to_string(number) + tag(0xF4D0) + word + "\n";
}

std::string meaning(const std::string& pos, const std::string& text) {
  return tag(0xF5D3) + sjis(pos) + "\n" + tag(0xF5D4) + tag(0xF5BD) + "1" + tag(0xF5C1) + sjis(text) + "\n";
}

std::map<std::string, std::string> makeDictionary() {
  DicWriter writer;
  const uint32_t go = writer.addE("go", head("go", 1) + meaning("-[動]", "行く (note), 動く") + tag(0xF5D5) +
                                            "go home" + tag(0xF5D8) + " " + sjis("帰る") + "\n" +
                                            tag(0xF5D6) + "go on\n" + tag(0xF5E4) + sjis("続く") + "\n");
  writer.addE("go", head("go", 2) + meaning("-[名][Ｃ]", "碁"));
  writer.addE("color", head("color", 1) + meaning("-[名]", "色"));
  writer.addE("colour", head("colour", 1) + tag(0xF5D4) + sjis("《英》 =color") + tag(0xF4B5) + "1" +
                            tag(0xF4D0) + "\n");
  writer.addE("church",
              head("ch\xA5urch" + sjis("≦") + "A\xD9" + sjis("≧"), 1) + meaning("-[名][Ｃ]", "教会"));
  writer.addE("good", head("good", 1) + meaning("-[形](more～, most)", "良い《★例》"));
  for (const char* word : {"chant", "chap", "chart", "chase", "a", "an", "be"}) {
    writer.addE(word, head(word, 1) + meaning("-[動]", "訳"));
  }
  writer.addHase("goer", go);
  for (const char* form : {"go", "goes", "went", "gone"})
    writer.addKatu(form, "{go:現,goes:三,went:過,gone:分}");
  for (const char* form : {"good", "better"}) writer.addKatu(form, "{good:原,better:比,best:最}");
  writer.addJ("いく", "行く", test::entryJ("いく", "行く", "to go"));
  writer.addJ("こう", "甲", test::entryJ("こう", "甲", "shell"));
  writer.addJ("こう", "功", test::entryJ("こう", "功", "merit"));
  writer.addJ("こうえん", "公園", test::entryJ("こうえん", "公園", "park"));
  writer.addJ("か", "", test::entryJ("か", "", "query〈問い〉"));
  writer.addJ("ヴァン", "", test::entryJ("ヴァン", "", "van"));
  return writer.files();
}

std::map<std::string, std::string> makeUserSets() {
  const std::string header(engine::kUserHeader, '\0');
  std::map<std::string, std::string> files;
  const std::string entryE = test::entryE("go", "動", "進む");
  const test::IndexFiles e = test::writeIndex(engine::kTypeE, {{"go", 128}, {"church", 128}}, true);
  files["ueej.dic"] = header + entryE;
  files["ueej.idx"] = e.idx;
  files["ueej.ix3"] = e.ix3;
  std::string kana, kanji;
  engine::ChangeMidasiStrJ(sjis("いく"), false, &kana);
  engine::ChangeMidasiStrJ(sjis("行く"), true, &kanji);
  const test::IndexFiles kna = test::writeIndex(engine::kTypeKana, {{kana, 128}}, true);
  test::IndexFiles kji = test::writeIndex(engine::kTypeKji, {{kanji, 128}}, true);
  files["ujje.dic"] = header + test::entryJ("いく", "行く", "to go");
  files["ujkna.idx"] = kna.idx;
  files["ujkna.ix3"] = kna.ix3;
  files["uj001.idx"] = kji.idx;
  kji.idx[engine::kKjiCountOffset] = 1;
  files["ujkji.idx"] = kji.idx;
  files["ujkji.ix3"] = kji.ix3;
  return files;
}

}  // namespace

const std::map<std::string, std::string>& baseDictionary() {
  static const std::map<std::string, std::string> files = makeDictionary();
  return files;
}

const std::vector<std::string>& baseNames() {
  static const std::vector<std::string> names = {"ej.dic",   "ej.ix3",   "ej.idx",   "hase.ix3", "hase.idx",
                                                 "katu.dic", "katu.ix3", "katu.idx", "je.dic",   "je.ix3",
                                                 "je.idx",   "ke.ix3",   "ke.idx"};
  return names;
}

Sides changedSides(const std::map<std::string, std::string>& files) {
  const auto changed = [&files](const std::string& name) {
    const auto file = files.find(name);
    return file == files.end() || file->second != baseDictionary().at(name);
  };
  const auto japanese = baseNames().begin() + 8;
  const bool e = std::any_of(baseNames().begin(), japanese, changed);
  const bool j = std::any_of(japanese, baseNames().end(), changed);
  return {e || !j, j || !e};
}

const std::map<std::string, std::string>& baseUserSets() {
  static const std::map<std::string, std::string> files = makeUserSets();
  return files;
}

}  // namespace zavel::fuzz
