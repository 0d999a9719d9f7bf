// Showing the selected row. Tests: tests/shell/DetailTest.cpp
#include "config/ZavelPath.h"
#include "platform/Bundle.h"
#include "platform/FontMetrics.h"
#include "platform/Platform.h"
#include "shell/S_Controller.h"

namespace zavel {
namespace {

constexpr const char* kFont = "HiraKakuPro-W3";
constexpr Color kWhite{1, 1, 1, 1};
constexpr Color kMirellBackColor{1.0, 1.0, 0.9, 1.0};

// `format` with its first "%@" replaced by `first` and its second by `second`.
std::string fillIn(std::string format, const std::string& first, const std::string& second) {
  size_t from = 0;
  for (const std::string& part : {first, second}) {
    const size_t slot = format.find("%@", from);
    if (slot == std::string::npos) break;
    format.replace(slot, 2, part);
    from = slot + part.size();
  }
  return format;
}

}  // namespace

TextView::Font S_Controller::detailFont() const {
  return {kFont, static_cast<double>(defaultFontSize())};
}

void S_Controller::displaySelectedRow(size_t row) {
  if (row >= hwResultArray_.size()) return;
  const ResultRow shown = hwResultArray_[row];  // a host that hears of a change may search anew
  std::visit([this](const auto& data) { display(data); }, shown);
}

// Puts the entry in the detail view; false when it can't be had.
bool S_Controller::loadEntry(const MirellData& row) {
  if (!mirellManager_) return false;
  const int size = defaultFontSize();
  const FontHeights heights = platform().fonts().heights(kFont, size);
  const int32_t ascender = static_cast<int32_t>(heights.ascender);
  const int32_t descender = static_cast<int32_t>(heights.descender);
  mirellManager_->SetFontAttribute(kFont, static_cast<uint32_t>(size), static_cast<uint32_t>(ascender),
                                   static_cast<uint32_t>(ascender + descender));
  // The engine looks the keyword up, and takes of its entries the one with this headword line.
  const std::string word(row.keywordBytes(), row.keywordLength());
  const std::string line = std::string(row.midashiBytes(), row.midashiLength()).c_str();
  const bool made = row.english() ? mirellManager_->NewGetImiE(word, hwHeadMode_, line)
                                  : mirellManager_->NewGetImiJ(word, hwHeadMode_, line);
  return made && gMirellModule && hwResultView_.loadStyledFile(gMirellModule->cachePath());
}

void S_Controller::display(const MirellData& row) {
  bool shown = false;
  const bool latest =
      inTurn({[this] { hwHeadView_.setHidden(false); }, [this] { hwResultView_.setText(""); },
              [this] { hwResultView_.setBackgroundColor(kMirellBackColor); },
              [this] { hwResultView_.setFont(detailFont()); }, [&] { shown = loadEntry(row); }});
  if (!latest) return;
  iPodOutTitle_.clear();
  if (shown) {
    iPodOutEnglish_ = row.english() ? 1 : 0;
    iPodOutTitle_ = fillIn(platform().bundle().localized("OiPodTitle"), row.iPodTitle(), "");
  }
  resultType_ = kMirellRow;
  updateTool(shown);
}

void S_Controller::display(const TransData& row) {
  const bool latest = inTurn(
      {[this] { hwHeadView_.setHidden(true); }, [this] { hwResultView_.setText(""); },
       [this] { hwResultView_.setBackgroundColor(kWhite); }, [this] { hwResultView_.setFont(detailFont()); },
       [this] {
         if (textColor)
           hwResultView_.setTextColor({textColor->red, textColor->green, textColor->blue, textColor->alpha});
       },
       [&] { hwResultView_.setText(row.detailString()); }});
  if (!latest) return;
  if (zavelType() == ZAVEL_TYPE_GENERAL) {
    iPodOutEnglish_ = row.english() ? 1 : 0;
    iPodOutTitle_ =
        fillIn(platform().bundle().localized("TiPodTitle"), row.english() ? "EJ" : "JE", row.indexTitle());
  }
  resultType_ = kTransRow;
  updateTool(true);
}

}  // namespace zavel
