#include <sstream>
#include <string>

#include "config/ConfigTest.h"
#include "config/ZavelCommonModule.h"
#include "platform/TextEncoding.h"

namespace zavel::test {
namespace {

// The table that is installed with the library.
class EntityResource : public ConfigTest {
 protected:
  std::string converted(const std::string& text) const { return *module_.convertEntities(text); }

 private:
  ZavelCommonModule module_{std::string(ZAVEL_RESOURCES) + "/Entity.plist"};
};

TEST_F(EntityResource, IsRead) {
  EXPECT_TRUE(log().empty());
}

TEST_F(EntityResource, HasTheSignsOfMarkup) {
  EXPECT_EQ(converted("&lt;b&gt; &quot;Q&amp;A&quot; it&apos;s"), "<b> \"Q&A\" it's");
  EXPECT_EQ(converted("&#60;&#62;&#34;&#38;&#39;&#039;"), "<>\"&''");
}

TEST_F(EntityResource, ReadsTheAmpersandLast) {
  EXPECT_EQ(converted("&amp;lt; &amp;amp; &#38;gt; &amp;#38;"), "&lt; &amp; &gt; &#38;");
  EXPECT_EQ(converted("&#38;amp; &#x26;amp; &#38;#x26;"), "&amp; &amp; &#x26;");
  EXPECT_EQ(converted("&#x26;#38; &#38;#38; &amp;#x26; &#x26;lt; &#38;"), "&#38; &#38; &#x26; &lt; &");
}

TEST_F(EntityResource, GivesWhatShiftJisHas) {
  EXPECT_EQ(converted("caf&eacute; &Eacute;cole &ntilde; &Uuml;ber &alpha;&Omega; &copy; &times;"),
            "cafe Ecole n Uber αΩ (C) ×");
  const std::string text = converted("&euro;&yen;&hellip;&ndash;&mdash;&nbsp;&thinsp;&shy;&laquo;&rarr;");
  EXPECT_TRUE(platform.encoding().toSjisStrict(text)) << text;
}

// All names of HTML 4, in the order of their characters.
constexpr char kNames[] =
    "quot amp lt gt nbsp iexcl cent pound curren yen brvbar sect uml copy ordf laquo not shy reg "
    "macr deg plusmn sup2 sup3 acute micro para middot cedil sup1 ordm raquo frac14 frac12 frac34 "
    "iquest Agrave Aacute Acirc Atilde Auml Aring AElig Ccedil Egrave Eacute Ecirc Euml Igrave "
    "Iacute Icirc Iuml ETH Ntilde Ograve Oacute Ocirc Otilde Ouml times Oslash Ugrave Uacute Ucirc "
    "Uuml Yacute THORN szlig agrave aacute acirc atilde auml aring aelig ccedil egrave eacute ecirc "
    "euml igrave iacute icirc iuml eth ntilde ograve oacute ocirc otilde ouml divide oslash ugrave "
    "uacute ucirc uuml yacute thorn yuml OElig oelig Scaron scaron Yuml fnof circ tilde Alpha Beta "
    "Gamma Delta Epsilon Zeta Eta Theta Iota Kappa Lambda Mu Nu Xi Omicron Pi Rho Sigma Tau Upsilon "
    "Phi Chi Psi Omega alpha beta gamma delta epsilon zeta eta theta iota kappa lambda mu nu xi "
    "omicron pi rho sigmaf sigma tau upsilon phi chi psi omega thetasym upsih piv ensp emsp thinsp "
    "zwnj zwj lrm rlm ndash mdash lsquo rsquo sbquo ldquo rdquo bdquo dagger Dagger bull hellip "
    "permil prime Prime lsaquo rsaquo oline frasl euro image weierp real trade alefsym larr uarr "
    "rarr darr harr crarr lArr uArr rArr dArr hArr forall part exist empty nabla isin notin ni prod "
    "sum minus lowast radic prop infin ang and or cap cup int there4 sim cong asymp ne equiv le ge "
    "sub sup nsub sube supe oplus otimes perp sdot lceil rceil lfloor rfloor lang rang loz spades "
    "clubs hearts diams ";

TEST_F(EntityResource, HasAllButThirteenOfThe252NamesOfHtml4) {
  std::istringstream names(kNames);
  int count = 0;
  std::string missing;
  for (std::string name; names >> name; ++count) {
    const std::string entity = "&" + name + ";";
    const std::string text = converted(entity);
    EXPECT_TRUE(platform.encoding().toSjisStrict(text)) << name;
    if (text == entity) missing += name + " ";
  }
  EXPECT_EQ(count, 252);
  // Neither Shift_JIS nor plain text says these.
  EXPECT_EQ(missing, "curren cedil weierp crarr notin nsub lceil rceil lfloor rfloor spades clubs hearts ");
}

TEST_F(EntityResource, SaysTheRarerOnesWithWhatShiftJisHas) {
  struct Row {
    const char* entity;
    const char* character;
  };
  const Row rows[] = {
      {"&ETH;", "D"},      {"&THORN;", "TH"},   {"&eth;", "d"},    {"&thorn;", "th"},      {"&piv;", "π"},
      {"&sigmaf;", "σ"},   {"&thetasym;", "θ"}, {"&upsih;", "Υ"},  {"&zwj;", ""},          {"&zwnj;", ""},
      {"&lrm;", ""},       {"&rlm;", ""},       {"&lsaquo;", "'"}, {"&rsaquo;", "'"},      {"&iexcl;", "!"},
      {"&iquest;", "?"},   {"&brvbar;", "|"},   {"&frasl;", "/"},  {"&acute;", "´"},       {"&uml;", "¨"},
      {"&circ;", "^"},     {"&tilde;", "~"},    {"&macr;", "￣"},  {"&oline;", "￣"},      {"&ordf;", "a"},
      {"&ordm;", "o"},     {"&sup1;", "^1"},    {"&sup2;", "^2"},  {"&sup3;", "^3"},       {"&micro;", "μ"},
      {"&fnof;", "f"},     {"&image;", "Im"},   {"&real;", "Re"},  {"&alefsym;", "aleph"}, {"&harr;", "⇔"},
      {"&lArr;", "←"},     {"&uArr;", "↑"},     {"&rArr;", "⇒"},   {"&dArr;", "↓"},        {"&hArr;", "⇔"},
      {"&forall;", "∀"},   {"&exist;", "∃"},    {"&not;", "￢"},   {"&and;", "∧"},         {"&or;", "∨"},
      {"&there4;", "∴"},   {"&isin;", "∈"},     {"&ni;", "∋"},     {"&sub;", "⊂"},         {"&sup;", "⊃"},
      {"&sube;", "⊆"},     {"&supe;", "⊇"},     {"&cap;", "∩"},    {"&cup;", "∪"},         {"&empty;", "{}"},
      {"&part;", "∂"},     {"&nabla;", "∇"},    {"&int;", "∫"},    {"&sum;", "Σ"},         {"&prod;", "Π"},
      {"&radic;", "√"},    {"&prop;", "∝"},     {"&lowast;", "*"}, {"&sdot;", "・"},       {"&oplus;", "(+)"},
      {"&otimes;", "(×)"}, {"&ang;", "∠"},      {"&perp;", "⊥"},   {"&equiv;", "≡"},       {"&asymp;", "≒"},
      {"&cong;", "≒"},     {"&sim;", "~"},      {"&lang;", "〈"},  {"&rang;", "〉"},       {"&loz;", "◇"},
      {"&diams;", "◆"},
  };
  for (const Row& row : rows) EXPECT_EQ(converted(row.entity), row.character) << row.entity;
}

TEST_F(EntityResource, MakesTypographicSignsPlain) {
  EXPECT_EQ(converted("&ldquo;a&rdquo; &lsquo;b&rsquo; c&ndash;d&mdash;e &#8220;&#8221;&#8216;&#8217;"),
            "\"a\" 'b' c-d-e \"\"''");
}

TEST_F(EntityResource, MakesBlanksOfAllWidthsOneBlank) {
  EXPECT_EQ(converted("a&nbsp;b&#160;c&ensp;d&emsp;e&thinsp;f"), "a b c d e f");
}

TEST_F(EntityResource, LeavesWhatIsNoEntity) {
  EXPECT_EQ(converted("&unknown; & &amp &AMP; a;b 日本"), "&unknown; & &amp &AMP; a;b 日本");
}

}  // namespace
}  // namespace zavel::test
