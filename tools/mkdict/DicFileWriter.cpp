#include "mkdict/DicFileWriter.h"

#include "engine/DicFormat.h"

namespace zavel::mkdict {
namespace {

constexpr std::string_view kEntryTag = "\xF5\xD1";
static_assert(engine::kTagEntry == 0xF5D1);

}  // namespace

bool DicFileWriter::append(size_t entry, std::string_view text) {
  if (offsets_[entry] != kNowhere) return true;
  if (bytes_.size() + text.size() >= kNowhere) return false;
  offsets_[entry] = static_cast<uint32_t>(bytes_.size());
  bytes_ += text;
  ++count_;
  return true;
}

const char* DicFileWriter::fault(std::string_view text) {
  if (text.size() >= engine::kMaxEntry) return "entries of 65,535 bytes and more";
  if (text.substr(0, 2) != kEntryTag) return "entries that do not begin with the entry tag";
  if (text.find(kEntryTag, 1) != std::string_view::npos) return "entries with a second entry tag inside";
  if (text.back() != '\n') return "entries without a line end";
  return nullptr;
}

}  // namespace zavel::mkdict
