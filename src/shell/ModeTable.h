// The rows of the main controller's tables. Only its own sources need them.
#ifndef SHELL_MODETABLE_H
#define SHELL_MODETABLE_H

#include "shell/ZavelLexController.h"

namespace zavel {

// A mode: its names, its number, and what the window shows while it is up.
struct ZavelLexController::ModeRow {
  const char* identifier;
  ModeNumber number;
  const char* tabIdentifier;
  bool showsField;           // else the search field is emptied and hidden
  MenuOf menu;               // of the search field; null for none
  const char* squareButton;  // key of its title; null: hidden
};

// An addressed event: the mode that it is for, whether that comes up, and what is done then.
struct ZavelLexController::EventRow {
  const char* name;
  ModeNumber mode;
  bool selects;
  Act act;
};

}  // namespace zavel

#endif
