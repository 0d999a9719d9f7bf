// The light half of the Linux port: every service of the platform, those that need more loading it when first
// used.
#ifndef PORT_LINUX_BASE_LINUXPLATFORM_H
#define PORT_LINUX_BASE_LINUXPLATFORM_H

#include "base/AppleSingleFiles.h"
#include "base/DesktopApplications.h"
#include "base/IconvTextEncoding.h"
#include "base/LinuxBundle.h"
#include "base/LinuxFolders.h"
#include "base/LinuxRunLoop.h"
#include "base/LoopChildProcesses.h"
#include "base/ModuleSoundOutput.h"
#include "base/NominalFontMetrics.h"
#include "base/PlistPropertyLists.h"
#include "base/PlistUserDefaults.h"
#include "base/SpawnToolRunner.h"
#include "base/TerminalUserServices.h"
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
  LinuxRunLoop& runLoop() override { return runLoop_; }
  ChildProcesses& children() override { return children_; }
  UserDefaults& userDefaults() override { return userDefaults_; }
  UserServices& userServices() override { return userServices_; }
  LinuxBundle& bundle() override { return bundle_; }
  SoundOutput& sound() override { return sound_; }

 private:
  IconvTextEncoding encoding_;
  PlistPropertyLists propertyLists_;
  NominalFontMetrics fonts_;
  AppleSingleFiles forkedFiles_;
  SpawnToolRunner tools_;
  LinuxFolders folders_;
  LinuxRunLoop runLoop_;
  DesktopApplications applications_{runLoop_};
  LoopChildProcesses children_{runLoop_};
  PlistUserDefaults userDefaults_{propertyLists_, folders_};
  TerminalUserServices userServices_;
  LinuxBundle bundle_{propertyLists_};
  ModuleSoundOutput sound_;
};

// The one behind defaultPlatform(). A host that is one of the known applications gives its signature here.
LinuxPlatform& linuxPlatform();

}  // namespace zavel

#endif
