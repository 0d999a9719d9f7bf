// Damaged user sets: every byte of every file changed in several ways, every length cut. Whatever is asked of
// them ends in a documented status.
#include <cstring>
#include <set>

#include "engine/RamDicFixture.h"

namespace zavel::engine {
namespace {

using test::entryE;
using test::entryJ;
using test::sjis;

const std::set<Status> kDocumented = {1, 17, 18, 19, 20, 21, 258, 259, 260, 2049, 2051, 2052};

class UserDamageTest : public RamDicTest {
 protected:
  // Small sets that use all there is: equal keys, remainders, examples, kanji in two indexes.
  void WriteSets() {
    const std::string phrase =
        "\xF5\xD1\xF5\xB1"
        "cat\xF5\xC1\n\xF5\xD6\xF5\xB1"
        "a cat\xF5\xC1\n\xF5\xE4x\n\xF5\xE5"
        "a\xF5\xD8 b\n";
    WriteSetE({{"cat", entryE("cat", "名", "猫")}, {"cat", phrase}, {"cats", entryE("cats", "動", "x")}});
    const std::string cat = entryJ("ねこ", "猫", "cat") + "\xF5\xD5\x81\xF7\x82\xA0\xF5\xD8 e\n";
    const std::string dog = entryJ("いぬ", "犬", "dog"), plain = entryJ("ねこや", "", "shop");
    WriteSetJ({{"ねこ", cat}, {"いぬ", dog}, {"ねこや", plain}}, {{"猫", cat}, {"犬", dog}});
    ASSERT_EQ(EndAPI(), 1);
    SetFile("001.idx", File("kji.idx"));
    SetFile("kji.idx",
            std::string(10, '\0') + "\x01" + std::string(117, '\0') + Le32(0) + Le32(136) + Le32(0));
  }

  // Sound sets answer 1 everywhere.
  void Expect(Status status, const char* call) {
    EXPECT_TRUE(sound_ ? status == 1 : kDocumented.contains(status)) << call << " " << status;
  }

  // Taken as it is: a damaged text is no Shift_JIS.
  static sikibetu_data SikibetuAt(const std::string& list, size_t at) {
    sikibetu_data sikibetu{};
    static_assert(sizeof sikibetu == 28);
    std::memcpy(&sikibetu, list.substr(at, sizeof sikibetu).data(), sizeof sikibetu);
    return sikibetu;
  }

  // The identifications of the first entry that a search finds; false without one.
  bool FirstE(sikibetu_data* first) {
    uint16_t count = 0;
    Handle list = nullptr;
    Expect(SerchUserDicE("cat", nullptr, &count, &list), "search");
    const std::string found = TakeBytes(list);
    if (count > 0) *first = SikibetuAt(found, found.find('\0') + 1 + 17);
    return count > 0;
  }
  bool FirstJ(sikibetu_data* kana, sikibetu_data* kanji) {
    uint16_t count = 0;
    Handle list = nullptr;
    Expect(SerchUserDicJ(sjis("ねこ").c_str(), nullptr, &count, &list), "search");
    const std::string found = TakeBytes(list);
    if (count == 0) return false;
    const size_t fixed = found.find('\0', found.find('\0') + 1) + 1;
    *kana = SikibetuAt(found, fixed + 16);
    *kanji = SikibetuAt(found, fixed + 16 + 28);
    return true;
  }

  // Each function on what the sets hold.
  void UseE() {
    uint16_t count = 0;
    uint32_t size = 0;
    Handle list = nullptr;
    sikibetu_data first{};
    Expect(GetListUserDicE(&count, &list, &size), "list");
    GlobalFree(list);
    if (FirstE(&first)) Expect(Add(EntryE{.word = "cat"}, &first), "overwrite");
    if (FirstE(&first)) Expect(DelUserDicE(&first), "delete");
    Expect(Add(EntryE{.word = "cat"}), "add");
  }
  void UseJ() {
    uint16_t count = 0;
    uint32_t size = 0;
    Handle list = nullptr;
    sikibetu_data kana{}, kanji{};
    Expect(GetListUserDicJ(&count, &list, &size), "list");
    GlobalFree(list);
    if (FirstJ(&kana, &kanji)) Expect(Add(EntryJ{.kana = "ねこ", .kanji = "猫"}, &kana, &kanji), "overwrite");
    if (FirstJ(&kana, &kanji)) Expect(DelUserDicJ(&kana, &kanji), "delete");
    Expect(Add(EntryJ{.kana = "ねこ", .kanji = "鳥"}), "add");
  }
  void UseAll(bool english) {
    const Status opened = english ? OpenE() : OpenJ();
    Expect(opened, "InitAPI");
    if (opened != 1) return;
    english ? UseE() : UseJ();
    Expect(english ? ArrangeUserDicE() : ArrangeUserDicJ(), "arrange");
    Expect(EndAPI(), "EndAPI");
  }

  void DamageEach(const std::vector<std::string>& names, bool english) {
    WriteSets();
    EndAPI();
    const auto sound = disk_.files();
    sound_ = true;
    UseAll(english);
    sound_ = false;
    for (const std::string& name : names) {
      const std::string bytes = File(name);
      for (size_t at = 0; at < bytes.size(); ++at) {
        if (at > 14 && at < 126) continue;  // of the header nothing else is read
        SCOPED_TRACE(name + " byte " + std::to_string(at));
        for (const int change :
             {0x00, 0xFF, 0x01 ^ bytes[at], 0x80 ^ bytes[at], bytes[at] + 1, bytes[at] - 1}) {
          disk_.setFiles(sound);
          std::string damaged = bytes;
          damaged[at] = static_cast<char>(change);
          SetFile(name, damaged);
          UseAll(english);
        }
        disk_.setFiles(sound);
        SetFile(name, bytes.substr(0, at));
        UseAll(english);
        if (HasFailure()) return;
      }
    }
  }

  bool sound_ = false;
};

TEST_F(UserDamageTest, EnglishSets) {
  DamageEach({"ej.dic", "ej.ix3", "ej.idx"}, true);
}

TEST_F(UserDamageTest, JapaneseSets) {
  DamageEach({"je.dic", "kna.ix3", "kna.idx", "kji.ix3", "kji.idx", "001.idx"}, false);
}

}  // namespace
}  // namespace zavel::engine
