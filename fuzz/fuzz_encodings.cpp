// Any bytes through the encoding service, the conversions of double-byte text and the text services.
#include <algorithm>
#include <cstring>
#include <vector>

#include "EngineCalls.h"
#include "config/ByteStrings.h"
#include "config/TwcServices.h"
#include "config/ZavelCommonModule.h"
#include "foundation/Bcd.h"
#include "foundation/Kanji.h"
#include "foundation/KanjiConversion.h"
#include "foundation/StringType.h"
#include "foundation/Utf8.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"

namespace {

using namespace zavel;

constexpr char kReplacement[] = "\xEF\xBF\xBD";

void decode(const std::string& text) {
  const TextEncoding& encoding = platform().encoding();
  fuzz::demand(isValidUtf8(encoding.fromSjisLossy(text)), "Shift_JIS gives UTF-8");
  for (const Encoding from : {Encoding::kUtf8, Encoding::kUtf16, Encoding::kShiftJis, Encoding::kEucJp}) {
    const std::string lossy = encoding.toUtf8Lossy(text, from);
    fuzz::demand(isValidUtf8(lossy), "every encoding gives UTF-8");
    const auto strict = encoding.toUtf8Strict(text, from);
    fuzz::demand(!strict || *strict == lossy, "what decodes wholly decodes alike");
  }
  fuzz::demand(isValidUtf8(replaceInvalidUtf8(text)), "repaired text is UTF-8");
}

void encode(const std::string& text) {
  const TextEncoding& encoding = platform().encoding();
  const std::string lossy = encoding.toSjisLossy(text).bytes();
  const auto strict = encoding.toSjisStrict(text);
  if (!strict) return;
  fuzz::demand(strict->bytes() == lossy, "what encodes wholly encodes alike");
  fuzz::demand(encoding.fromSjisLossy(strict->bytes()).find(kReplacement) == std::string::npos,
               "what was written strictly reads back");
}

// A buffer of `room` bytes on the heap, where a byte too many is noticed, with the text and its NUL in it.
std::vector<char> buffer(const std::string& text, size_t room) {
  std::vector<char> bytes(std::max(room, text.size() + 1));
  text.copy(bytes.data(), text.size());
  return bytes;
}

// Each conversion with as much room as its header asks for.
void convert(const std::string& text) {
  const size_t size = text.size();
  const std::vector<char> in = buffer(text, 0);
  std::vector<char> out = buffer("", size + 1);
  foundation::JisToEucX(in.data(), out.data());
  foundation::EucToJisX(in.data(), out.data());
  out = buffer("", 2 * size + 1);
  foundation::ZenToHanEuc(in.data(), out.data());
  foundation::ConvSJIStoEUC(out.data(), in.data(), static_cast<int>(size));
  out = buffer("", 2 * size);
  fuzz::demand(foundation::GFnConvSJIS2JIS(out.data(), in.data(), size) <= 2 * size,
               "at most twice the bytes");
  out = buffer("", size + 2);
  foundation::GFnConvJIS2EUC(out.data(), in.data(), size);
  foundation::GFnGetStringType(in.data());
  for (const char* at = in.data(); *at != '\0'; at = foundation::__mbsinc(at)) {
    foundation::IsKanji(at);
    foundation::__mbctombb(foundation::__mbsnextc(at));
    foundation::__zenKatakana2hanKatakana(foundation::__mbsnextc(at));
  }
  for (const auto change : {foundation::GFnReplaceKatakana, foundation::InvertDBCSString}) {
    std::vector<char> copy = in;
    change(copy.data());
  }
  std::vector<char> copy = in;
  foundation::Trim(copy.data());
  foundation::BCD2ulong(reinterpret_cast<const uint8_t*>(in.data()), size);
  foundation::GFnBCD2WORD(reinterpret_cast<const uint8_t*>(in.data()), size);
}

void serve(const std::string& text) {
  std::string copy = text;
  ZavelCommonModule::trimHeadTailCheckMiddleForEnglish(&copy);
  ZavelCommonModule::trimInsideCheck(&copy);
  ZavelCommonModule::trimHeadTail(&copy);
  copy = text;
  ZavelCommonModule::assistEngTranslateSentence(&copy);
  ZavelCommonModule::judgeTextDataEorJ(text);
  ZavelCommonModule::judgeTextStringEorJ(text);
  ZavelCommonModule("").stringToNSColor(text);
  const int32_t size = static_cast<int32_t>(text.size());
  std::vector<char> cut(text.size() / 2 + 1);
  ZavelCommonModule::getSjisFromNSString(text, cut.data(), cut.size());
  twcGetBytesFromCFString(text.c_str(), cut.data(), static_cast<int32_t>(cut.size()));
  twcIsJapanese(text.c_str());
  for (const int32_t index : {0, 1, size / 2, size, size + 1}) twcSJISCode(text.c_str(), index);
}

// The first bytes are taken for what is looked for and what replaces it.
void replace(const std::string& text) {
  if (text.size() < 8) return;
  const std::string from = text.substr(0, 2), to = text.substr(2, 4), rest = text.substr(6);
  std::string out;
  ReplaceString(&out, rest, from, to);
  ReplaceString2(&out, rest, from, to);
  std::string wide;
  ReplaceWString(&wide, rest, from, to);
  fuzz::demand(out == wide, "narrow and wide replace alike");
  fuzz::demand(FindString(rest, from) == FindWString(rest, from), "narrow and wide find alike");
  std::vector<char> cut(rest.size() / 2 + 1);
  ReplaceString3(rest, from, to, cut.data(), cut.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size > 4096) return 0;
  const std::string text(reinterpret_cast<const char*>(data), size);
  decode(text);
  encode(text);
  convert(text.substr(0, text.find('\0')));
  serve(text);
  replace(text);
  return 0;
}
