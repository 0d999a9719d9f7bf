#include "dicttool/EnglishBases.h"

#include <gtest/gtest.h>

namespace zavel::dicttool {
namespace {

// "use, us" are tried one after the other, "past+paste" side by side; "-" for none.
std::string basesOf(const char* word) {
  std::string text;
  for (const std::vector<std::string>& alternatives : englishBases(word)) {
    std::string one;
    for (const std::string& base : alternatives) one += (one.empty() ? "" : "+") + base;
    text += (text.empty() ? "" : ", ") + one;
  }
  return text.empty() ? "-" : text;
}

struct Row {
  const char* word;
  const char* bases;
};

void check(const std::vector<Row>& rows) {
  for (const Row& row : rows) EXPECT_EQ(basesOf(row.word), row.bases) << row.word;
}

TEST(EnglishBases, OfAPossessive) {
  check({{"Tanaka's", "Tanaka"},
         {"Tanaka’s", "Tanaka"},
         {"TANAKA'S", "TANAKA"},
         {"John Smith's", "John Smith"},
         {"AT&T's", "AT&T"},
         {"compilers'", "compiler"},
         {"Tanakas’", "Tanaka"},
         {"'s", "-"},
         {"'", "-"},
         {"Tanaka'", "-"}});
}

TEST(EnglishBases, OfAPluralOrThirdPerson) {
  check({{"compilers", "compiler"},
         {"Smiths", "Smith"},
         {"goes", "goe, go"},
         {"shoes", "shoe, sho"},
         {"uses", "use, us"},
         {"sizes", "size, siz"},
         {"classes", "class, classe"},
         {"boxes", "box, boxe"},
         {"caches", "cach, cache"},
         {"dishes", "dish, dishe"},
         {"quizzes", "quizz, quiz"},
         {"cities", "city+citie"},
         {"movies", "movy+movie"},
         {"dies", "die, dy"},
         {"knives", "knive+knif+knife"},
         {"days", "day"},
         {"ads", "ad"},
         {"CPUs", "CPU"},
         {"PCs", "PC"},
         {"data links", "data link"}});
}

TEST(EnglishBases, OfAFormInEdOrIng) {
  check({{"jumped", "jump+jumpe"},
         {"jumping", "jump+jumpe"},
         {"pasted", "past+paste"},
         {"hoping", "hope, hop"},
         {"hopping", "hopp, hop"},
         {"planned", "plann, plan"},
         {"called", "call, cal"},
         {"used", "use, us"},
         {"quoted", "quote, quot"},
         {"boxed", "box+boxe"},
         {"showing", "show, showe"},
         {"played", "play, playe"},
         {"visiting", "visit+visite"},
         {"reading", "read+reade"},
         {"queued", "queue, queu"},
         {"skiing", "ski, skie"},
         {"echoed", "echo, echoe"},
         {"panicked", "panick+panicke, panic"},
         {"studied", "study+studie"},
         {"died", "die, dy"},
         {"dying", "die, dy"},
         {"agreed", "agree"},
         {"being", "be"},
         {"seeing", "see"},
         {"Compiled", "Compil+Compile"}});
}

TEST(EnglishBases, OfNoFormAreNone) {
  check({{"", "-"},       {"s", "-"},     {"is", "-"},
         {"bus", "-"},    {"glass", "-"}, {"analysis", "-"},
         {"bed", "-"},    {"king", "-"},  {"thing", "-"},
         {"string", "-"}, {"ing", "-"},   {"ed", "-"},
         {"went", "-"},   {"women", "-"}, {"x86s", "-"},
         {"C++", "-"},    {"猫s", "-"},   {" ", "-"},
         {"ies", "-"},    {"HTTPS", "-"}, {"Tana\x01ka's", "-"}});
}

}  // namespace
}  // namespace zavel::dicttool
