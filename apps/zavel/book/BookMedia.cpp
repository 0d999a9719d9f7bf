// Tests: tests/zavel/book/BookMediaTest.cpp
#include "book/BookMedia.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <vector>

#include "JsonWriter.h"
#include "Utf8.h"
#include "book/BookFailure.h"
#include "book/BookScreen.h"
#include "foundation/ByteReader.h"
#include "user/OutputFile.h"

namespace zavel::host {
namespace {

constexpr const char* kStandardOutput = "-";
constexpr size_t kZeroes = 128;         // behind a tag, so that its reader comes to an end
constexpr size_t kWidestDrawing = 160;  // columns, where no terminal tells its width

const char* nounOf(SpanKind kind) {
  return kind == SpanKind::kSound ? "sound" : "picture";
}

std::vector<BookSpan> mediaOf(const BookText& text, SpanKind kind) {
  std::vector<BookSpan> spans;
  for (const BookLine& line : text.lines) {
    for (const BookSpan& span : line.spans) {
      if (span.kind == kind) spans.push_back(span);
    }
  }
  return spans;
}

bool isAt(const BookSpan& span, const _SDICADDRESS& place) {
  return span.address.block == place.block && span.address.offset == place.offset;
}

Failure severalOf(const std::vector<BookSpan>& spans, SpanKind kind, const std::string& where) {
  std::string all;
  for (const BookSpan& span : spans) all += (all.empty() ? "" : ", ") + placeText(span.address);
  return {kExitUsage, "several_entries",
          "there are " + std::to_string(spans.size()) + " " + nounOf(kind) + "s at " + printable(where),
          "Choose the place of one: " + all};
}

std::string imageFacts(const std::optional<BookImage>& image) {
  return image ? std::to_string(image->width) + " x " + std::to_string(image->height) + " dots" : "";
}

std::string facts(const BookMedium& medium, const std::optional<BookImage>& image) {
  std::string text = std::string(medium.kind) + (medium.place.empty() ? "" : " " + medium.place);
  if (!medium.name.empty()) text += ", " + medium.name;
  const std::string form = formOf(medium.data);
  std::string more = form == "wav" ? soundFacts(medium.data) : imageFacts(image);
  if (!more.empty()) text += ": " + more;
  return text + ", " + std::to_string(medium.data.size()) + " bytes (" + form + ")";
}

// A bitmap becomes a PNG where the file's name asks for one.
std::string contentFor(const std::string& file, const BookMedium& medium,
                       const std::optional<BookImage>& image) {
  const bool png = file.size() > 4 && file.ends_with(".png");
  return png && image ? pngFile(*image) : medium.data;
}

void printJson(const ShelvedBook& book, const BookMedium& medium, const std::optional<BookImage>& image,
               const std::string& file) {
  JsonWriter json;
  json.beginObject().member("schema", 1).member("status", "found").member("book", book.name());
  json.member("title", book.title()).member("kind", medium.kind).key("place");
  if (medium.place.empty()) {
    json.null();
  } else {
    json.string(medium.place);
  }
  json.key("name");
  if (medium.name.empty()) {
    json.null();
  } else {
    json.string(medium.name);
  }
  json.member("form", formOf(medium.data)).key("width");
  if (image) {
    json.integer(image->width).member("height", int64_t{image->height});
  } else {
    json.null().key("height").null();
  }
  json.member("bytes", static_cast<int64_t>(medium.data.size())).key("file");
  if (file.empty()) {
    json.null().member("data", base64(medium.data));
  } else {
    json.string(file).key("data").null();
  }
  std::printf("%s\n", json.endObject().text().c_str());
}

void draw(const BookImage& image, const BookScreen& screen) {
  const size_t most = screen.look().width > 0 ? screen.look().width : kWidestDrawing;
  if (image.width > most) return;
  const bool colours = screen.look().colour && hasColours(image);
  std::fputs((colours ? inColours(image) : inBlocks(image)).c_str(), stdout);
}

}  // namespace

Failure findTag(ShelvedBook& book, const std::string& placeOrWord, SpanKind kind, std::string* tag,
                BookMedium* medium) {
  std::vector<_SDICADDRESS> places;
  if (const Failure failure = placesOf(book, placeOrWord, &places)) return failure;
  std::vector<BookSpan> found;
  BookEntry entry;
  for (const _SDICADDRESS& place : places) {
    if (const Failure failure = readEntry(book, place, &entry, true)) return failure;
    const std::vector<BookSpan> spans = mediaOf(entry.text, kind);
    const bool itself = !spans.empty() && isAt(spans.front(), entry.place);
    found.insert(found.end(), spans.begin(), itself ? spans.begin() + 1 : spans.end());
  }
  if (found.empty()) return lacking(book.name(), std::string(nounOf(kind)) + " at " + printable(placeOrWord));
  if (found.size() > 1) return severalOf(found, kind, placeOrWord);
  if (const Failure failure = readEntry(book, found.front().address, &entry, true)) return failure;
  *tag = entry.words + std::string(kZeroes, '\0');
  medium->kind = nounOf(kind);
  medium->place = placeText(found.front().address);
  medium->name = found.front().text;
  return {};
}

int deliver(const ShelvedBook& book, const BookMedium& medium, const BookOptions& options) {
  const std::optional<BookImage> image = readBitmap(medium.data);
  if (options.output == kStandardOutput) {
    if (options.json) {
      return report({kExitUsage, "usage", "--json and --output - exclude each other",
                     "Leave out --output: the document holds the data."},
                    true);
    }
    if (isTerminal(STDOUT_FILENO)) {
      return report({kExitUsage, "usage", "these bytes are for no terminal",
                     "Name a file, or pass them on: --output - | another-program"},
                    false);
    }
    std::fwrite(medium.data.data(), 1, medium.data.size(), stdout);
    return kExitFound;
  }
  const std::string content = contentFor(options.output, medium, image);
  if (!options.output.empty() && !writeOutputFile(options.output, content)) {
    return report({kExitEnvironment, "not_written", printable(options.output) + " can't be written",
                   "Check that its folder is there and yours, and that the disk isn't full."},
                  options.json);
  }
  if (options.json) {
    printJson(book, medium, image, options.output);
    return kExitFound;
  }
  if (!options.output.empty()) {
    std::printf("%s (%zu bytes, %s)\n", printable(options.output).c_str(), content.size(), formOf(content));
    return kExitFound;
  }
  const BookScreen screen(options, false);
  std::printf("%s\n", facts(medium, image).c_str());
  if (image) draw(*image, screen);
  return kExitFound;
}

// The chunk "fmt " tells the form, "data" how much there is.
std::string soundFacts(std::string_view wav) {
  constexpr size_t kRiff = 12, kChunk = 8, kFormat = 16;
  const auto number = [wav](size_t at) {
    return readLE32(reinterpret_cast<const uint8_t*>(wav.data()) + at);
  };
  uint32_t channels = 0, rate = 0, perSecond = 0, bits = 0;
  for (uint64_t at = kRiff; at + kChunk <= wav.size();) {
    const std::string_view name = wav.substr(at, 4);
    const uint64_t size = number(at + 4);
    if (name == "fmt " && size >= kFormat && at + kChunk + kFormat <= wav.size()) {
      channels = number(at + 8) >> 16;
      rate = number(at + 12);
      perSecond = number(at + 16);
      bits = number(at + 20) >> 16;
    }
    if (name == "data" && perSecond > 0) {
      char text[96];
      std::snprintf(text, sizeof text, "%u channel%s, %u Hz, %u bits, %.1f s", channels,
                    channels == 1 ? "" : "s", rate, bits, static_cast<double>(size) / perSecond);
      return text;
    }
    at += kChunk + size + size % 2;
  }
  return {};
}

}  // namespace zavel::host
