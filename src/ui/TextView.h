#ifndef UI_TEXTVIEW_H
#define UI_TEXTVIEW_H

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "ui/AttributedText.h"
#include "ui/Color.h"
#include "ui/Control.h"
#include "ui/Menu.h"

namespace zavel {

// A pane of styled text. Its font and text colour count where a style leaves them open. Ranges are cut to the
// text; where the text changes the selection is cut to what is left.
class ZAVEL_API TextView : public Control {
 public:
  struct Font {
    std::string name;
    double size = 0;  // points

    bool operator==(const Font&) const = default;
  };

  using Control::Control;

  const AttributedText& text() const { return text_; }
  void setText(std::string_view utf8) { setText(AttributedText(utf8)); }
  void setText(AttributedText text);
  void append(std::string_view utf8, const TextStyle& style = {});
  void replace(TextRange range, std::string_view utf8);
  void restyle(TextRange range, const std::function<void(TextStyle&)>& edit);

  // Shows a styled text file, see StyledTextFile.h. False, and nothing changed, when it can't be read.
  bool loadStyledFile(const std::string& path);

  const Font& font() const { return font_; }
  void setFont(const Font& font) { change(font_, font); }
  const Color& textColor() const { return textColor_; }
  void setTextColor(const Color& color) { change(textColor_, color); }
  const Color& backgroundColor() const { return backgroundColor_; }
  void setBackgroundColor(const Color& color) { change(backgroundColor_, color); }

  bool editable() const { return editable_; }
  void setEditable(bool editable) { change(editable_, editable); }

  TextRange selection() const { return selection_; }
  void setSelection(TextRange range);

  // The range last asked to be brought into view; empty at 0 to begin with, for the top. Asking is a change
  // each time. New text leaves it as it is, cut to the text.
  TextRange scrolledRange() const { return scrolledRange_; }
  void scrollRangeToVisible(TextRange range);

  // --- The user's events; true if they were taken ---

  bool select(TextRange range);
  // The user put `utf8` in the place of `range`: typed, cut or pasted. Only while editable. The selection
  // becomes the place behind it. Emits textEdited.
  bool edit(TextRange range, std::string_view utf8);
  // Emits linkClicked if a link stands at the position.
  bool click(size_t position);
  // What onContextMenu makes, or null.
  std::shared_ptr<Menu> contextMenu() const;

  // The selection is another one than before, whoever changed it.
  Signal<> selectionChanged;
  Signal<> textEdited;
  Signal<int> linkClicked;  // TextStyle::link

  // Makes the menu for the text as it stands. Whoever sets it takes it off before going.
  std::function<std::shared_ptr<Menu>()> onContextMenu;

 private:
  void textChanged();

  AttributedText text_;
  Font font_;
  Color textColor_{0, 0, 0, 1};
  Color backgroundColor_{1, 1, 1, 1};
  bool editable_ = false;
  TextRange selection_;
  TextRange scrolledRange_;
};

}  // namespace zavel

#endif
