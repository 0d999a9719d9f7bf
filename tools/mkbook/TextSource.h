// A hand-made book: a text file in the form of mkbook-text(5), with pictures and sounds beside it.
#ifndef MKBOOK_TEXTSOURCE_H
#define MKBOOK_TEXTSOURCE_H

#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "mkbook/BookSource.h"
#include "mkbook/SourceErrors.h"
#include "mkbook/TextEntry.h"
#include "mkbook/TextLines.h"
#include "mkbook/TextMedia.h"
#include "mkdict/Summary.h"

namespace zavel::mkbook {

// The file is held, and entries are read from it when they are asked for.
class TextSource : public BookSource {
 public:
  // Reads all of it once and tells all that is wrong by one Failure. What leads nowhere is told in *summary
  // and becomes plain text.
  TextSource(const std::string& path, mkdict::Summary* summary);

  size_t size() const override { return entries_.size(); }
  BookEntry entry(size_t number) const override;
  // What every entry has, and what its lines name besides.
  std::vector<std::string> keywords(size_t number) const override;
  std::vector<std::string> crossWords(size_t number) const override;
  std::vector<MultiSearch> forms() const override { return forms_; }
  std::vector<std::vector<std::string>> fieldValues(size_t entry, size_t form) const override;
  std::vector<MediumShape> media() const override { return media_.shapes(); }
  std::string mediumBytes(size_t number) const override { return media_.bytes(number); }
  std::vector<Menu> menus() const override { return menus_; }
  std::string title() const override { return title_; }
  std::string publisher() const override { return publisher_; }
  uint32_t identity() const override { return identity_; }
  uint32_t version() const override { return version_; }
  std::string largeIcon() const override { return largeIcon_; }
  std::string smallIcon() const override { return smallIcon_; }

 private:
  void findSections();
  void readHeader(const TextSection& section);
  void readHeaderLine(const Directive& directive, size_t line);
  void readEntries();
  void readMenus();
  void readForms();
  void checkValues();
  void findStrayValues(const std::set<std::pair<std::string, std::string>>& values);
  void tellLost(mkdict::Summary* summary) const;

  uint32_t numberIn(const Directive& directive, size_t line, uint32_t least);
  std::string iconIn(const Directive& directive, size_t line, uint32_t width, uint32_t height);
  void complain(size_t line, size_t offset, const std::string& message);
  MarkMeanings firstMeanings(size_t line, size_t shift, bool inMenu);
  MarkMeanings laterMeanings() const;
  void lead(Span* span, const std::string& label) const;
  TextEntry parsed(size_t number) const;

  SourceErrors errors_;
  TextLines lines_;
  TextMedia media_;
  std::string title_, publisher_, largeIcon_, smallIcon_;
  uint32_t identity_ = 0, version_ = 1;
  std::vector<TextSection> entries_, menuSections_, formSections_;
  std::unordered_map<std::string, size_t> labels_;  // entries
  std::vector<Menu> menus_;
  std::vector<MultiSearch> forms_;
  // Labels and menus that were led to, and the line.
  std::vector<std::pair<std::string, size_t>> toLabels_;
  struct ToMenu {
    std::string name;
    bool pictures;
    size_t line, offset;
  };
  std::vector<ToMenu> toMenus_;
  bool inPictureMenu_ = false;
  std::vector<std::pair<std::string, std::string>> deadChoices_;  // field, choice
  std::vector<std::pair<std::string, std::string>> strayValues_;  // field, value in small letters
};

}  // namespace zavel::mkbook

#endif
