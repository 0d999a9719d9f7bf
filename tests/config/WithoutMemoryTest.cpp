// Styles and path table without memory: each request for some fails once, and nothing is thrown at the host.
#include <functional>
#include <string>

#include "config/ConfigTest.h"
#include "config/ZavelPath.h"
#include "config/ZavelStyle.h"
#include "support/FailingMemory.h"

namespace zavel::test {
namespace {

// Whether some request of `call` was refused, each once; nothing else of it counts.
bool failsEach(const std::function<void()>& call) {
  return refuseEachRequest(call, [](bool) {}) > 0;
}

class WithoutMemoryEach : public ConfigTest {
 protected:
  ~WithoutMemoryEach() override {
    zavelStyleTerminate();
    zavelPathTerminate();
  }
  const std::string path_ = at("a path that is longer than what a string holds in itself");
};

TEST_F(WithoutMemoryEach, ThePathTableIsMadeOrNot) {
  EXPECT_TRUE(failsEach([] { zavelPathInitialize(); }));
  EXPECT_EQ(zavelPathDictAndHelper(), nullptr);
}

TEST_F(WithoutMemoryEach, AnApplicationsPathIsGivenOrNull) {
  writeTable(path_, Value::Dict{{"ApplicationPath", Value::Dict{{"VX", path_}}}});
  zavelPathInitialize();
  zavelPathLoadDictAndHelper(path_.c_str());
  const char* given = nullptr;
  const int refused = refuseEachRequest([&] { given = zavelPathGetAppleyPath(ZAVEL_APPLET_BROWSER); },
                                        [&](bool failed) { EXPECT_EQ(given == nullptr, failed); });
  EXPECT_GT(refused, 0);
  EXPECT_EQ(given, path_);
}

TEST_F(WithoutMemoryEach, ALoadWithoutMemoryIs1) {
  writeTable(path_, Value::Dict{{"HelperPath", Value::Dict{}}});
  zavelPathInitialize();
  const std::string copy = path_;
  int code = 0;
  const int refused = refuseEachRequest([&] { code = zavelPathLoadDictAndHelper(copy.c_str()); },
                                        [&](bool failed) { EXPECT_EQ(code, failed ? 1 : 18); });
  EXPECT_GT(refused, 0);
}

TEST_F(WithoutMemoryEach, FoldersOfTheStylesAreSetOrStay) {
  const std::string longer(1000, 'a');
  zavelStyleInitialize();
  EXPECT_TRUE(failsEach([&] { zavelStyleSetTechDictUrl(longer.c_str(), longer.c_str()); }));
  EXPECT_TRUE(failsEach([&] { zavelStyleSetUserDictUrl(longer.c_str()); }));
}

TEST_F(WithoutMemoryEach, AStyleIsLoadedOrNot) {
  const Value etoj = Value::Dict{{"Opt1", 1}, {"Opt2", 2}, {"Opt3", 3}};
  const Value jtoe = Value::Dict{{"Opt1", 4}, {"Opt2", 5}, {"Opt3", 6}, {"Opt4", true}};
  const Value style = Value::Dict{{"ID", 1}, {"Name", "One"}, {"EJ", etoj}, {"JE", jtoe}};
  writeTable(path_, Value::Dict{{"Style", Value::Array{style}}, {"Selection", Value::Dict{{"QN", 1}}}});
  EXPECT_TRUE(failsEach([] { zavelStyleInitialize(); }));
  bool loaded = false;
  EXPECT_TRUE(failsEach([&] { loaded = zavelStyleSetTStyleUrl(path_.c_str()); }));
  EXPECT_TRUE(loaded);
  EXPECT_TRUE(failsEach([&] { loaded = zavelStyleLoadTitleAndCurrentID(1, nullptr); }));
  EXPECT_TRUE(loaded);
  EXPECT_TRUE(failsEach([&] { loaded = zavelStyleLoadTranslationStyleWithID(1); }));
  EXPECT_TRUE(loaded);
  EXPECT_TRUE(failsEach([&] { loaded = zavelStyleLoadTranslationStyleWithApp(1); }));
  EXPECT_TRUE(loaded);
  EXPECT_EQ(zavelStyleJtoeUkemi(), 5);
}

}  // namespace
}  // namespace zavel::test
