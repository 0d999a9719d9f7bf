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

// Words that are forms of others as well, and words that only an apostrophe tells apart.
void addHomonyms(DicWriter& writer) {
  writer.addE("saw", head("", 1, "saw") + pos("[動]") + imi("切る"));
  writer.addE("saw", head("", 2, "saw") + pos("[名][Ｃ]") + imi("鋸"));
  writer.addE("see", head("***", 1, "see") + pos("[動]") + imi("見る"));
  const std::string see = "{see:現,sees:三,saw:過,seen:分,seeing:進}";
  for (const char* form : {"see", "sees", "seen", "seeing"}) writer.addKatu(form, see);
  const std::string both =
      "{see:現,sees:三,saw:過,seen:分,seeing:進,saw:現,saws:三,sawed:過,sawn:分,sawing:進}";
  writer.addKatu("saw", both);
  writer.addE("can", head("***", 1, "can") + pos("[動]") + imi("できる"));
  writer.addE("cant", head("", 1, "cant") + pos("[名]") + imi("隠語"));
  writer.addE("child", head("***", 1, "child") + pos("[名][Ｃ]") + imi("子供"));
  for (const char* form : {"child", "children"}) writer.addKatu(form, "{child:単,children:複}");
  writer.addE("un", head("", 1, "UN") + pos("[名]") + imi("国連"));
  writer.addE("cafe", head("", 1, "cafe") + pos("[名][Ｃ]") + imi("喫茶店"));
}

// The same with a part of speech.
std::string verbJ(const std::string& reading, const std::string& form, const std::string& label,
                  const std::string& meaning) {
  return kEntry + sjis(reading + "\x1b" + form) + "\n" + pos("[" + label + "]") + imi(meaning);
}

void addJapanese(DicWriter& writer) {
  writer.addJ("いく", "行く", verbJ("いく", "行く", "動カ五", "to go; to proceed"));
  writer.addJ("たべる", "食べる", verbJ("たべる", "食べる", "動一段", "to eat"));
  writer.addJ("うつくしい", "美しい", verbJ("うつくしい", "美しい", "形", "beautiful"));
  writer.addJ("べんきょう", "勉強", verbJ("べんきょう", "勉強", "サ変", "study"));
  writer.addJ("くる", "来る", verbJ("くる", "来る", "動カ変", "to come"));
  writer.addJ("する", "為る", verbJ("する", "為る", "動サ変", "to do"));
  writer.addJ("ひとびと", "人人", verbJ("ひとびと", "人人", "名", "people"));
  writer.addJ("いちがつ", "一月", verbJ("いちがつ", "一月", "名", "January"));
  writer.addJ("ビル", "", entryJ("ビル", "", "building"));
  writer.addJ("ビール", "", entryJ("ビール", "", "beer"));
  writer.addJ("びる", "", entryJ("びる", "", "to behave as"));
  writer.addJ("こう", "甲", entryJ("こう", "甲", "carapace, shell"));
  writer.addJ("こう", "功", entryJ("こう", "功", "merit"));
  writer.addJ("へん", "変", verbJ("へん", "変", "形動", "strange"));
  writer.addJ("ヘンナ", "", entryJ("ヘンナ", "", "henna"));
  writer.addJ("パン", "", entryJ("パン", "", "bread"));
}

}  // namespace

void writeHostDictionary(const std::string& folder) {
  DicWriter writer;
  addEnglish(writer);
  addHomonyms(writer);
  addJapanese(writer);
  writer.write(folder);
}

}  // namespace zavel::test
