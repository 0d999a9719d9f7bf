// The style file that a host writes on its first start.
#ifndef CONFIG_WORKSTYLES_H
#define CONFIG_WORKSTYLES_H

#include <string>
#include <vector>

#include "foundation/Export.h"
#include "platform/Value.h"

namespace zavel {

enum class StyleLanguage { kEnglish, kJapanese };

// Ten styles with the IDs 0 to 9 in this order, because the dictionary parameter file counts them where all
// else goes by ID; their names in `language`; and a choice for every application that has a key
// (docs/formats.md). `technicalEJ`: file names of the technical dictionaries that are installed, for the
// styles in which technical words are expected.
ZAVEL_API Value defaultStyles(StyleLanguage language, const std::vector<std::string>& technicalEJ = {});

// Writes them as XML to `path` + ".plist", with the folders above it, if nothing is there. The write is
// atomic. True when a file stands there afterwards; one that stood there before is not looked into.
ZAVEL_API bool writeStylesIfMissing(const std::string& path, StyleLanguage language,
                                    const std::vector<std::string>& technicalEJ = {});

}  // namespace zavel

#endif
