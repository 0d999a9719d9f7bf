// Answers queries one after the other, in the form that was asked for, and counts how they went.
#ifndef ZAVEL_ANSWERER_H
#define ZAVEL_ANSWERER_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Failure.h"
#include "Host.h"
#include "Look.h"
#include "LookCommand.h"
#include "TextView.h"
#include "user/UserWords.h"

namespace zavel::host {

class Answerer {
 public:
  // `batch`: the queries come from standard input. `lost`: why the bilingual dictionary is not to be had, so
  // that the user's own entries alone answer; else `host` is open. All but `batch` are borrowed.
  Answerer(const LookOptions& options, Host& host, bool batch, const UserWords& own, const Failure& lost);

  // Writes the answer to standard output, or says on standard error why there is none. `tooLong`: `query` is
  // only the start of what was asked.
  void answer(std::string_view query, bool tooLong);

  // Shows what was held back for the pager. To be called once, behind the last answer.
  void finish();

  // The exit status of what was answered so far.
  int status() const;

 private:
  LookRequest request(std::string_view word) const;
  const Row* rowAsked(const LookResult& result) const;
  Failure rowFailure(const LookResult& result) const;
  void look(std::string_view word, LookResult* result, Failure* failure);
  void addOwn(LookResult* result, Failure* failure);
  void askDictionaries(LookResult* result);
  void complain(const LookResult& result);
  void refuse(std::string_view word, const Failure& failure);
  void show(const LookResult& result);
  std::string text(const LookResult& result) const;
  std::string json(const LookResult& result) const;
  std::string whatIsMissing(const LookResult& result) const;
  void tellNotFound(const LookResult& result);
  void write(const std::string& text);

  const LookOptions& options_;
  Host& host_;
  const UserWords& own_;
  const Failure& lost_;
  std::optional<Look> look_;    // nothing where the dictionary is lost
  Dictionaries* dictionaries_;  // null where the bilingual dictionary alone is open
  std::vector<RowKind> kinds_;  // of what is searched
  std::string complained_;      // what was told last of a dictionary that did not answer
  TextLook text_;
  bool batch_;
  size_t rows_ = 0;   // of the screen, where a pager may be used; else 0
  std::string held_;  // for the pager
  size_t answered_ = 0, found_ = 0, failed_ = 0;
  ExitStatus lastFailure_ = kExitFound;
};

}  // namespace zavel::host

#endif
