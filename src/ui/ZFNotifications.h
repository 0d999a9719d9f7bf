// Keys and names of the notifications that pass between hosts, views and the main controller.
#ifndef UI_ZFNOTIFICATIONS_H
#define UI_ZFNOTIFICATIONS_H

namespace zavel {

// Members of an addressed notification's map.
inline constexpr const char* ZFParentKey = "zfParentKey";            // identity: the host's token
inline constexpr const char* ZFTextKey = "zfTextKey";                // string: the text
inline constexpr const char* ZFModeKey = "zfModeKey";                // integer: a translation direction tag
inline constexpr const char* ZFStyleKey = "zfStyleKey";              // integer: a translation style number
inline constexpr const char* ZFViewPointerKey = "zfViewPointerKey";  // identity: the view that took a drop
inline constexpr const char* ZFRowKey = "zfRowKey";                  // integer: row to select after a look-up

// Posted by a view at a drop: ZFViewPointerKey and ZFTextKey.
inline constexpr const char* ZFDropNotification = "zfDropNotification";

}  // namespace zavel

#endif
