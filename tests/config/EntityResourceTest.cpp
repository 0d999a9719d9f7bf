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
}

TEST_F(EntityResource, GivesWhatShiftJisHas) {
  EXPECT_EQ(converted("caf&eacute; &Eacute;cole &ntilde; &Uuml;ber &alpha;&Omega; &copy; &times;"),
            "cafe Ecole n Uber αΩ (C) ×");
  const std::string text = converted("&euro;&yen;&hellip;&ndash;&mdash;&nbsp;&thinsp;&shy;&laquo;&rarr;");
  EXPECT_TRUE(platform.encoding().toSjisStrict(text)) << text;
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
