// The light half of the Linux port: every service of the platform that a look-up needs.
#ifndef PORT_LINUX_BASE_LINUXPLATFORM_H
#define PORT_LINUX_BASE_LINUXPLATFORM_H

#include "base/AppleSingleFiles.h"
#include "base/IconvTextEncoding.h"
#include "base/LinuxFolders.h"
#include "base/NoApplications.h"
#include "base/NominalFontMetrics.h"
#include "base/PlistPropertyLists.h"
#include "base/SpawnToolRunner.h"
#include "platform/Platform.h"

namespace zavel {

// Making one costs nothing: each service gets hold of what it needs when it is first used.
class LinuxPlatform : public Platform {
 public:
  TextEncoding& encoding() override { return encoding_; }
  PropertyLists& propertyLists() override { return propertyLists_; }
  FontMetrics& fonts() override { return fonts_; }
  ForkedFiles& forkedFiles() override { return forkedFiles_; }
  ToolRunner& tools() override { return tools_; }
  Applications& applications() override { return applications_; }
  Folders& folders() override { return folders_; }

 private:
  IconvTextEncoding encoding_;
  PlistPropertyLists propertyLists_;
  NominalFontMetrics fonts_;
  AppleSingleFiles forkedFiles_;
  SpawnToolRunner tools_;
  NoApplications applications_;
  LinuxFolders folders_;
};

}  // namespace zavel

#endif
