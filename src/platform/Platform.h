// All services of the platform in one place. The port defines defaultPlatform(); a test or a host puts
// its own in front with setPlatform().
#ifndef PLATFORM_PLATFORM_H
#define PLATFORM_PLATFORM_H

namespace zavel {

class Applications;
class Folders;
class FontMetrics;
class ForkedFiles;
class PropertyLists;
class TextEncoding;
class ToolRunner;

class Platform {
 public:
  virtual ~Platform() = default;

  virtual TextEncoding& encoding() = 0;
  virtual PropertyLists& propertyLists() = 0;
  virtual FontMetrics& fonts() = 0;
  virtual ForkedFiles& forkedFiles() = 0;
  virtual ToolRunner& tools() = 0;
  virtual Applications& applications() = 0;
  virtual Folders& folders() = 0;
};

// The platform in use.
Platform& platform();

// Puts `replacement` (borrowed; null for the port's own) in use and gives what was in use before it.
Platform* setPlatform(Platform* replacement);

// Defined by the port. Services are made when first asked for.
Platform& defaultPlatform();

}  // namespace zavel

#endif
