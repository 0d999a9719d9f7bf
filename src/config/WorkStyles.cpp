// Tests: tests/config/WorkStylesTest.cpp
#include "config/WorkStyles.h"

#include "config/TwcServices.h"
#include "config/ZavelStyle.h"
#include "foundation/Storage.h"
#include "platform/Platform.h"
#include "platform/PropertyLists.h"

namespace zavel {
namespace {

// "Opt1" of EJ: how sentences end.
enum Ending { kPolite = 0, kPlain = 1, kFamiliar = 2 };
// "Opt2" of EJ: what "they" is taken for.
enum They { kPeople = 0, kThings = 1 };
// "Opt1" of JE: the subject where the Japanese has none.
enum Shugo { kI = 0, kWe = 1, kIt = 2, kYou = 3 };
// "Opt2" of JE: what becomes of the passive.
enum Ukemi { kPassiveStays = 0, kPassiveMadeActive = 1 };
// "Opt3" of JE: the article of a noun that nothing else settles.
enum Kanshi { kThe = 0, kA = 1 };

constexpr bool kTechnical = true;
constexpr bool kEveryday = false;
constexpr int kLearning = 1;

struct DefaultStyle {
  const char* english;
  const char* japanese;
  Ending ending;
  They they;
  Shugo shugo;
  Ukemi ukemi;
  Kanshi kanshi;
  bool technical;
};

constexpr int kGeneralStyle = 0;
constexpr int kMailStyle = 3;
constexpr int kWebStyle = 6;

constexpr DefaultStyle kStyles[kStyleCount] = {
    {"General", "一般", kPolite, kPeople, kI, kPassiveStays, kThe, kTechnical},
    {"Papers and reports", "論文・レポート", kPlain, kThings, kWe, kPassiveStays, kThe, kEveryday},
    {"Business letters", "ビジネス文書", kPolite, kPeople, kWe, kPassiveStays, kThe, kEveryday},
    {"E-mail", "メール", kPolite, kPeople, kI, kPassiveStays, kThe, kEveryday},
    {"Conversation", "会話", kFamiliar, kPeople, kI, kPassiveMadeActive, kA, kEveryday},
    {"News", "ニュース", kPlain, kPeople, kIt, kPassiveStays, kThe, kEveryday},
    {"Web pages", "ウェブページ", kPolite, kThings, kWe, kPassiveStays, kThe, kEveryday},
    {"Computers", "コンピューター", kPolite, kThings, kYou, kPassiveStays, kThe, kTechnical},
    {"Science and technology", "科学・技術", kPlain, kThings, kIt, kPassiveStays, kThe, kTechnical},
    {"Instructions", "取扱説明書", kPolite, kThings, kYou, kPassiveMadeActive, kThe, kTechnical},
};

struct Choice {
  int applet;
  int style;
};

constexpr Choice kChoices[] = {
    {ZAVEL_APPLET_TRANSLATION_EDITOR, kGeneralStyle},
    {ZAVEL_APPLET_STYLE_CLIENT_HG, kGeneralStyle},
    {ZAVEL_APPLET_MEMORY_BROWSER, kGeneralStyle},
    {ZAVEL_APPLET_USER_DICTIONARY_EDITOR, kGeneralStyle},
    {ZAVEL_APPLET_TOOL_GX, kGeneralStyle},
    {ZAVEL_APPLET_CORRESPONDENCE, kGeneralStyle},  // also the number of a host without one of its own
    {ZAVEL_APPLET_STYLE_CLIENT_PXW, kGeneralStyle},
    {ZAVEL_APPLET_CORRESPONDENCE2, kMailStyle},
    {ZAVEL_APPLET_BROWSER, kWebStyle},
    {ZAVEL_APPLET_TOOL_WZ, kGeneralStyle},
    {ZAVEL_APPLET_MEMORY_EDITOR, kGeneralStyle},
};

Value styleMap(int id, const DefaultStyle& style, StyleLanguage language, const Value::Array& technicalEJ) {
  Value::Dict etoj = {{"Opt1", style.ending}, {"Opt2", style.they}, {"Opt3", kLearning}};
  if (style.technical && !technicalEJ.empty()) etoj["TD"] = technicalEJ;
  Value::Dict jtoe = {{"Opt1", style.shugo}, {"Opt2", style.ukemi}, {"Opt3", style.kanshi}, {"Opt4", true}};
  const char* name = language == StyleLanguage::kJapanese ? style.japanese : style.english;
  return Value::Dict{{"ID", id}, {"Name", name}, {"EJ", std::move(etoj)}, {"JE", std::move(jtoe)}};
}

}  // namespace

Value defaultStyles(StyleLanguage language, const std::vector<std::string>& technicalEJ) {
  const Value::Array names(technicalEJ.begin(), technicalEJ.end());
  Value::Array styles;
  for (const DefaultStyle& style : kStyles)
    styles.push_back(styleMap(static_cast<int>(styles.size()), style, language, names));
  ZavelStyle keys;
  Value::Dict selection;
  for (const Choice& choice : kChoices) selection[keys.appKeyWithEnum(choice.applet)] = choice.style;
  return Value::Dict{{"Style", std::move(styles)}, {"Selection", std::move(selection)}};
}

bool writeStylesIfMissing(const std::string& path, StyleLanguage language,
                          const std::vector<std::string>& technicalEJ) {
  const std::string file = path + ".plist";
  if (storage().exists(file)) return true;
  const size_t name = file.rfind('/');
  if (name != std::string::npos && name > 0 && twcCreateFolder(file.substr(0, name).c_str()) != 0)
    return false;
  const Value styles = defaultStyles(language, technicalEJ);
  return platform().propertyLists().writeFile(file, styles, PropertyListFormat::kXml);
}

}  // namespace zavel
