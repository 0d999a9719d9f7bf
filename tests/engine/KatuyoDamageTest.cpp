// Every byte of a small dictionary's conjugation path is changed, and every file is cut everywhere. Run
// with the sanitizers this shows that nothing is read outside; here, that callers get a documented status
// and a list they can walk.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "engine/DicFormat.h"
#include "engine/EngineAPI.h"
#include "support/DicWriter.h"

namespace zavel::engine {
namespace {

using test::DicWriter;
using test::sjis;
using test::tag;
using test::TempFolder;

bool IsOneOf(int status, std::initializer_list<int> statuses) {
  return std::find(statuses.begin(), statuses.end(), status) != statuses.end();
}

// True if the records fill the list to the byte, each with a form code and a NUL at its end.
bool IsWellFormed(const std::string& list) {
  size_t at = 0;
  while (at + 3 < list.size()) {
    const size_t length = static_cast<uint8_t>(list[at]) | static_cast<uint8_t>(list[at + 1]) << 8;
    const int formCode = list[at + 2];
    at += 3 + length;
    if (formCode < 1 || formCode > 10 || length < 1 || at > list.size() || list[at - 1] != '\0') return false;
  }
  return at == list.size();
}

class KatuyoDamage : public testing::TestWithParam<const char*> {
 protected:
  KatuyoDamage() {
    DicWriter dic;
    const std::string verb = tag(kTagHinsi) + sjis("-[動]\n");
    const std::string head = tag(kTagEntry) + tag(kTagMarkerEnd);
    dic.addE("go", head + "go" + sjis("≦z≧\n") + verb);
    dic.addE("wen", head + "*we\xA5n\n" + tag(kTagHinsi) + sjis("-[形](more～,most～)\n"));
    dic.addE("went", head + "went\n" + tag(kTagHinsi) + sjis("-[名][Ｃ]\n"));
    dic.addKatu("went", "{go:現,went:過}");
    dic.addKatu("went", "{wend:現}");
    dic.addKatu("wen", "{wens:複}");
    dic.write(folder_.path());
    files_ = dic.files();
  }

  // Looks words up in the dictionary with `bytes` in the place of the file under test.
  void Try(const std::string& bytes) {
    test::writeFile(folder_.prefix() + GetParam(), bytes);
    const int opened = InitAPI(folder_.prefix().c_str(), nullptr, nullptr);
    ASSERT_TRUE(IsOneOf(opened, {1, 257, 260})) << opened;
    if (opened != 1) return;
    for (const char* word : {"went", "goes", "wen", "wener", "w"}) Ask(word);
    ASSERT_EQ(EndAPI(), 1);
  }

  static void Ask(const char* word) {
    uint32_t size = 0;
    Handle list = nullptr;
    const int status = GetKatuyo(word, &size, &list);
    ASSERT_TRUE(IsOneOf(status, {1, 17, 19, 20, 21, 257, 2304})) << word << " " << status;
    if (size == 0) {
      ASSERT_EQ(list, nullptr);
      return;
    }
    ASSERT_EQ(status, 1);
    EXPECT_TRUE(IsWellFormed(std::string(static_cast<char*>(GlobalLock(list)), size))) << word;
    GlobalUnlock(list);
    GlobalFree(list);
  }

  TempFolder folder_;
  std::map<std::string, std::string> files_;
};

TEST_P(KatuyoDamage, OfAnyByteEndsInADocumentedStatus) {
  const std::string whole = files_.at(GetParam());
  for (size_t at = 0; at < whole.size(); ++at) {
    const char byte = whole[at];
    for (const int changed : {0, 0xFF, byte ^ 1, byte + 1, byte - 1}) {
      SCOPED_TRACE(testing::Message() << "byte " << at << " as " << changed);
      std::string bytes = whole;
      bytes[at] = static_cast<char>(changed);
      ASSERT_NO_FATAL_FAILURE(Try(bytes));
    }
  }
}

TEST_P(KatuyoDamage, ByACutAnywhereEndsInADocumentedStatus) {
  const std::string whole = files_.at(GetParam());
  for (size_t length = 0; length <= whole.size(); ++length) {
    SCOPED_TRACE(testing::Message() << length << " bytes");
    ASSERT_NO_FATAL_FAILURE(Try(whole.substr(0, length)));
  }
}

INSTANTIATE_TEST_SUITE_P(Of, KatuyoDamage,
                         testing::Values("katu.dic", "katu.ix3", "katu.idx", "ej.dic", "ej.ix3", "ej.idx"),
                         [](const auto& file) {
                           std::string name = file.param;
                           std::replace(name.begin(), name.end(), '.', '_');
                           return name;
                         });

}  // namespace
}  // namespace zavel::engine
