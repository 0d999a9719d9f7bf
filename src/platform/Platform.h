// All services of the platform in one place. The port defines defaultPlatform(); a test or a host puts its
// own in front with setPlatform(), best by deriving from ForwardingPlatform and overriding what it supplies
// itself.
#ifndef PLATFORM_PLATFORM_H
#define PLATFORM_PLATFORM_H

#include "foundation/Export.h"

namespace zavel {

class Applications;
class Bundle;
class ChildProcesses;
class Folders;
class FontMetrics;
class ForkedFiles;
class PropertyLists;
class RunLoop;
class SoundOutput;
class TextEncoding;
class ToolRunner;
class UserDefaults;
class UserServices;

class ZAVEL_API Platform {
 public:
  virtual ~Platform() = default;

  virtual TextEncoding& encoding() = 0;
  virtual PropertyLists& propertyLists() = 0;
  virtual FontMetrics& fonts() = 0;
  virtual ForkedFiles& forkedFiles() = 0;
  virtual ToolRunner& tools() = 0;
  virtual Applications& applications() = 0;
  virtual Folders& folders() = 0;
  virtual RunLoop& runLoop() = 0;
  virtual ChildProcesses& children() = 0;
  virtual UserDefaults& userDefaults() = 0;
  virtual UserServices& userServices() = 0;
  virtual Bundle& bundle() = 0;
  virtual SoundOutput& sound() = 0;
};

// The platform in use.
ZAVEL_API Platform& platform();

// Puts `replacement` (borrowed; null for the port's own) in use and gives what was in use before it.
ZAVEL_API Platform* setPlatform(Platform* replacement);

// Defined by the port. Services are made when first asked for.
ZAVEL_API Platform& defaultPlatform();

}  // namespace zavel

#endif
