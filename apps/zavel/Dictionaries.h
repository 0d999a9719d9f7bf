// The dictionaries that this user has chosen, asked through the main controller: which are searched, in which
// order, and what rows come of it.
#ifndef ZAVEL_DICTIONARIES_H
#define ZAVEL_DICTIONARIES_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "HostPlatform.h"
#include "LookRequest.h"
#include "LookResult.h"
#include "PrivateFolder.h"
#include "shell/ZavelLexController.h"

namespace zavel::host {

class Dictionaries {
 public:
  // Makes the controller, which loads the path table. The store of the preferences is gZFWPlist. `platform`
  // is borrowed and in use.
  explicit Dictionaries(HostPlatform& platform);
  ~Dictionaries();
  Dictionaries(const Dictionaries&) = delete;
  Dictionaries& operator=(const Dictionaries&) = delete;

  // Opens the dictionaries. To be called once, ahead of all below. Null when the bilingual dictionary can't
  // be opened at all for want of a cache folder or for a path that is too long; else its manager.
  MirellDictionaryManager* open();

  // The part of the bilingual entries that rows show.
  void setMode(Mode mode);

  // The kinds that are searched, in the user's order.
  std::vector<RowKind> kinds() const;
  bool searches(RowKind kind) const;

  // Looks `word` (UTF-8, all of it in Shift_JIS) up in all of them, and shows the row at `row`, the first
  // without it, none where there is no such row. Fills `rows`, `failures` and `translationUnasked` of the
  // result.
  void ask(const std::string& word, std::optional<size_t> row, LookResult* result);

  // Whether the helper program itself has told on standard error which damage kept it from answering.
  bool helperToldWhy() const;

 private:
  void prepareTool();
  Failure toolFailure(const LookResult& result) const;
  Row rowAt(size_t index, const std::string& word);
  void show(Row* row);

  HostPlatform& platform_;
  SearchField field_;
  BusyIndicator progress_;
  ZavelLexController controller_;
  PrivateFolder folder_;  // for what the helper program reads and writes
  bool prepared_ = false;
};

// A dictionary's name as readers see it, in the language of the environment.
std::string dictionaryName(RowKind kind);

// Its names in all languages there are.
std::vector<std::string> dictionaryNames(RowKind kind);

}  // namespace zavel::host

#endif
