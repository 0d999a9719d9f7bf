// A style record and a text as the two parts of a styled file: u16 length of the record, low byte first, the
// record, the text. What is read must have its styles in order and cover the text.
#include "EngineCalls.h"
#include "Input.h"
#include "foundation/Utf8.h"
#include "ui/StyledTextFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zavel;
  if (size > 65536) return 0;
  fuzz::Input input(data, size);
  const std::string record = input.bytes(input.word());
  const std::optional<AttributedText> text = decodeStyledText(input.rest(), record);
  if (!text) return 0;
  fuzz::demand(isValidUtf8(text->text()), "the text is UTF-8");
  fuzz::demand(text->length() == AttributedText::unitsOf(text->text()), "its length counts its units");
  size_t at = 0;
  for (const AttributedText::Run& run : text->runs()) {
    fuzz::demand(run.range.start == at && run.range.length > 0, "runs follow each other");
    at = run.range.end();
  }
  fuzz::demand(at == text->length(), "and reach the end");
  return 0;
}
