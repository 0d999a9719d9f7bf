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

void S_Controller::display(const MirellData& row) {
  hwHeadView_.setHidden(false);
  hwResultView_.setText("");
  hwResultView_.setBackgroundColor(kMirellBackColor);
  hwResultView_.setFont(detailFont());
  bool shown = false;
  if (mirellManager_) {
    const int size = defaultFontSize();
    const FontHeights heights = platform().fonts().heights(kFont, size);
    const int32_t ascender = static_cast<int32_t>(heights.ascender);
    const int32_t descender = static_cast<int32_t>(heights.descender);
    mirellManager_->SetFontAttribute(kFont, static_cast<uint32_t>(size), static_cast<uint32_t>(ascender),
                                     static_cast<uint32_t>(ascender + descender));
    // The engine looks the keyword up, and takes of its entries the one with this headword line.
    const std::string word(row.keywordBytes(), row.keywordLength());
    const std::string line = std::string(row.midashiBytes(), row.midashiLength()).c_str();
    shown = row.english() ? mirellManager_->NewGetImiE(word, hwHeadMode_, line)
                          : mirellManager_->NewGetImiJ(word, hwHeadMode_, line);
    shown = shown && gMirellModule && hwResultView_.loadStyledFile(gMirellModule->cachePath());
  }
  iPodOutTitle_.clear();
  if (shown) {
    iPodOutEnglish_ = row.english() ? 1 : 0;
    iPodOutTitle_ = fillIn(platform().bundle().localized("OiPodTitle"), row.iPodTitle(), "");
  }
  updateTool(shown);
  resultType_ = kMirellRow;
}

void S_Controller::display(const TransData& row) {
  hwHeadView_.setHidden(true);
  hwResultView_.setText("");
  hwResultView_.setBackgroundColor(kWhite);
  hwResultView_.setFont(detailFont());
  if (textColor)
    hwResultView_.setTextColor({textColor->red, textColor->green, textColor->blue, textColor->alpha});
  hwResultView_.setText(row.detailString());
  if (zavelType() == ZAVEL_TYPE_GENERAL) {
    iPodOutEnglish_ = row.english() ? 1 : 0;
    iPodOutTitle_ =
        fillIn(platform().bundle().localized("TiPodTitle"), row.english() ? "EJ" : "JE", row.indexTitle());
  }
  updateTool(true);
  resultType_ = kTransRow;
}

}  // namespace zavel
