// User entries for the eye, and what the commands share.
#ifndef ZAVEL_USER_USERVIEW_H
#define ZAVEL_USER_USERVIEW_H

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Failure.h"
#include "JsonWriter.h"
#include "user/UserOptions.h"
#include "user/UserStore.h"

namespace zavel::host {

// "bank  [noun]  銀行" and a line for each example, indented. With a number ahead where it isn't 0.
std::string entryText(const UserEntry& entry, size_t number = 0);

// The languages that a command is for: the one that is told, or both.
std::vector<UserLanguage> languagesOf(const UserOptions& options);

// A store in the user's own place.
std::unique_ptr<UserStore> makeStore();

// The failure of a text that can't be stored.
Failure badEntry(const std::string& why);

// What is wrong with the entries that were shown.
struct UserDamage {
  Failure failure;
  std::vector<LostWord> lost;

  explicit operator bool() const { return static_cast<bool>(failure); }
  // Adds what is wrong with those of another language; the graver of both decides.
  void add(const Failure& more, const std::vector<LostWord>& lostToo = {});
};

// The member `damage` of documents; none for entries that are whole.
void writeDamage(JsonWriter& json, const UserDamage& damage);

// Tells what is wrong with entries that were shown as far as they can be read, and gives the status. Of those
// that aren't clear all were shown.
int reportDamage(const UserDamage& damage);

// A text of the user's in quotes, fit for one line of a message.
std::string inQuotes(std::string_view text);

// 12,345
std::string grouped(uintmax_t number);

}  // namespace zavel::host

#endif
