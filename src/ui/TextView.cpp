// Tests: tests/ui/TextViewTest.cpp
#include "ui/TextView.h"

#include <optional>
#include <utility>

#include "ui/StyledTextFile.h"

namespace zavel {

void TextView::setText(AttributedText text) {
  if (text == text_) return;
  text_ = std::move(text);
  textChanged();
}

void TextView::append(std::string_view utf8, const TextStyle& style) {
  if (utf8.empty()) return;
  text_.append(utf8, style);
  notifyChange();
}

void TextView::replace(TextRange range, std::string_view utf8) {
  AttributedText replaced = text_;
  replaced.replace(range, utf8);
  setText(std::move(replaced));
}

void TextView::restyle(TextRange range, const std::function<void(TextStyle&)>& edit) {
  AttributedText restyled = text_;
  restyled.restyle(range, edit);
  setText(std::move(restyled));
}

bool TextView::loadStyledFile(const std::string& path) {
  std::optional<AttributedText> text = readStyledTextFile(path);
  if (!text) return false;
  setText(std::move(*text));
  return true;
}

void TextView::setSelection(TextRange range) {
  if (change(selection_, text_.clip(range))) selectionChanged.emit();
}

void TextView::scrollRangeToVisible(TextRange range) {
  scrolledRange_ = text_.clip(range);
  notifyChange();
}

bool TextView::select(TextRange range) {
  if (!takesEvents()) return false;
  setSelection(range);
  return true;
}

bool TextView::edit(TextRange range, std::string_view utf8) {
  if (!takesEvents() || !editable_) return false;
  const std::weak_ptr<const bool> here = alive();
  const size_t start = text_.clip(range).start;
  replace(range, utf8);
  if (!here.expired()) setSelection({start + AttributedText::unitsOf(utf8), 0});
  if (!here.expired()) textEdited.emit();
  return true;
}

bool TextView::click(size_t position) {
  const TextStyle* const style = text_.styleAt(position);
  if (!takesEvents() || !style || style->link < 0) return false;
  linkClicked.emit(style->link);
  return true;
}

std::shared_ptr<Menu> TextView::contextMenu() const {
  return takesEvents() && onContextMenu ? onContextMenu() : nullptr;
}

void TextView::textChanged() {
  scrolledRange_ = text_.clip(scrolledRange_);
  const TextRange selection = text_.clip(selection_);
  const bool moved = selection != selection_;
  selection_ = selection;
  notifyChange();
  if (moved) selectionChanged.emit();
}

}  // namespace zavel
