// What a host does for the user on the system's behalf. A host supplies its own; the port's default serves a
// terminal.
#ifndef PLATFORM_USERSERVICES_H
#define PLATFORM_USERSERVICES_H

#include <optional>
#include <string>
#include <vector>

#include "foundation/Export.h"

namespace zavel {

struct Alert {
  std::string title;
  std::string message;
  std::vector<std::string> buttons;  // the first is the default one; localized
};

class ZAVEL_API UserServices {
 public:
  virtual ~UserServices() = default;

  // Shows the alert and waits. The index of the chosen button. Where nobody can be asked: 0.
  virtual size_t showAlert(const Alert& alert) = 0;
  virtual void beep() = 0;

  // The pasteboard's text; nothing when there is none.
  virtual std::optional<std::string> pasteboardText() = 0;
  virtual void setPasteboardText(const std::string& text) = 0;

  // Hands http, https, ftp, mailto and file links to whatever shows them. False when it wasn't taken.
  virtual bool openUrl(const std::string& url) = 0;
};

}  // namespace zavel

#endif
