// Any bytes through the encoding service, the double-byte functions and the text services.
#include <cstring>
#include <vector>

#include "config/TwcServices.h"
#include "config/ZavelCommonModule.h"
#include "foundation/KanjiConversion.h"
#include "foundation/StringType.h"
#include "foundation/Utf8.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zavel;
  if (size > 4096) return 0;
  const std::string text(reinterpret_cast<const char*>(data), size);
  TextEncoding& encoding = platform().encoding();
  const std::string utf8 = encoding.fromSjisLossy(text);
  if (!isValidUtf8(utf8)) __builtin_trap();
  for (const Encoding from : {Encoding::kUtf8, Encoding::kUtf16, Encoding::kShiftJis, Encoding::kEucJp}) {
    if (!isValidUtf8(encoding.toUtf8Lossy(text, from))) __builtin_trap();
    const auto strict = encoding.toUtf8Strict(text, from);
    if (strict && !isValidUtf8(*strict)) __builtin_trap();
  }
  encoding.toSjisLossy(text);
  const auto strict = encoding.toSjisStrict(text);
  if (strict && encoding.fromSjisLossy(strict->bytes()).find("\xEF\xBF\xBD") != std::string::npos &&
      text.find("\xEF\xBF\xBD") == std::string::npos) {
    __builtin_trap();  // what was written strictly reads back
  }

  std::vector<char> in(text.c_str(), text.c_str() + std::strlen(text.c_str()) + 1);
  in.push_back(0);
  std::vector<char> out(4 * in.size() + 8);
  foundation::JisToEucX(in.data(), out.data());
  foundation::EucToJisX(in.data(), out.data());
  foundation::ZenToHanEuc(in.data(), out.data());
  foundation::GFnConvSJIS2JIS(out.data(), in.data(), in.size() - 2);
  foundation::GFnConvJIS2EUC(out.data(), in.data(), in.size() - 2);
  foundation::ConvSJIStoEUC(out.data(), in.data(), static_cast<int>(in.size()));
  std::vector<char> copy = in;
  foundation::GFnReplaceKatakana(copy.data());
  copy = in;
  foundation::InvertDBCSString(copy.data());
  copy = in;
  foundation::Trim(copy.data());
  foundation::GFnGetStringType(in.data());
  return 0;
}
