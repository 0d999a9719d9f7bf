#include "zavel/HostDictionary.h"

#include "support/DicWriter.h"

namespace zavel::test {
namespace {

constexpr const char* kEntry = "\xF5\xD1";
constexpr const char* kMarker = "\xF4\xB5";
constexpr const char* kMarkerEnd = "\xF4\xD0";
constexpr const char* kHinsi = "\xF5\xD3";
constexpr const char* kImi = "\xF5\xD4";
constexpr const char* kGothic = "\xF5\xBD";
constexpr const char* kRoman = "\xF5\xC1";
constexpr const char* kExample = "\xF5\xD5";
constexpr const char* kOtherSide = "\xF5\xD8";

std::string head(const std::string& stars, int number, const std::string& word) {
  return kEntry + stars + kMarker + std::to_string(number) + kMarkerEnd + word + "\n";
}

std::string pos(const std::string& labelUtf8) {
  return kHinsi + sjis("-" + labelUtf8) + "\n";
}

std::string imi(const std::string& utf8) {
  return kImi + sjis(utf8) + "\n";
}

std::string numbered(int number, const std::string& utf8) {
  return std::string(kImi) + kGothic + std::to_string(number) + kRoman + " " + sjis(utf8) + "\n";
}

void addEnglish(DicWriter& writer) {
  writer.addE("go", head("", 1, "go") + pos("[名][Ｃ]") + imi("碁 (board game)"));
  const std::string verb = pos("[動]") + numbered(1, "行く, 動く (of a machine, to work)") +
                           numbered(2, "消える") + kExample + "go home" + kOtherSide + " " +
                           sjis("家に帰る") + "\n";
  writer.addE("go", head("***", 2, "go") + verb);
  for (const char* form : {"go", "goes", "went", "gone", "going"}) {
    writer.addKatu(form, "{go:現,goes:三,went:過,gone:分,going:進}");
  }
  writer.addE("church",
              head("**", 1, "church" + sjis("≦") + "A\xD9" + sjis("≧")) + pos("[名][Ｃ]") + imi("教会"));
  // The reference comes first: behind a meaning of odd length it would be passed over.
  const std::string reference = kImi + sjis("《英》 =color") + kMarker + "1" + kMarkerEnd + "\n";
  writer.addE("colour", head("", 1, "colour") + pos("[名]") + reference + imi("色"));
  writer.addE("color", head("", 1, "color") + pos("[名]") + imi("色彩"));
  const uint32_t happy = writer.addE("happy", head("", 1, "happy") + pos("[形]") + imi("幸せな"));
  writer.addHase("happiness", happy);
  writer.addE("make", head("***", 1, "make" + sjis("≦") + "meik" + sjis("≧")) + pos("[動]") + imi("作る"));
  writer.addE("Cape Town", head("", 1, "Cape Town") + pos("[名]") + imi("ケープタウン"));
}

void addJapanese(DicWriter& writer) {
  writer.addJ("いく", "行く", entryJ("いく", "行く", "to go; to proceed"));
  writer.addJ("こう", "甲", entryJ("こう", "甲", "carapace, shell"));
  writer.addJ("こう", "功", entryJ("こう", "功", "merit"));
  writer.addJ("パン", "", entryJ("パン", "", "bread"));
}

}  // namespace

void writeHostDictionary(const std::string& folder) {
  DicWriter writer;
  addEnglish(writer);
  addJapanese(writer);
  writer.write(folder);
}

}  // namespace zavel::test
