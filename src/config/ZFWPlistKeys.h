// Keys of the preference store, and what a setting is while the store lacks it.
#ifndef CONFIG_ZFWPLISTKEYS_H
#define CONFIG_ZFWPLISTKEYS_H

#include <cstdint>

namespace zavel {

// The dictionary list and who searches it.
inline constexpr char ZFWDictTabKey[] = "ZFWDictTabKey";
inline constexpr char ZFWDictTabTWEDItem[] =
    "ZFWDictTabTWEDItem";  // list of dictionary items, in search order
inline constexpr char ZFWDictTabAppletItem[] =
    "ZFWDictTabAppletItem";  // integer: 0 this system, 3 book browser

// A dictionary item: a map of three strings.
inline constexpr char ZFWDictTypeKey[] = "dictType";
inline constexpr char ZFWDictTitleKey[] = "dictTitle";
inline constexpr char ZFWSelectStatusKey[] = "selectStatus";
// Its types: the bilingual dictionary, one book or book group, the translation dictionary.
inline constexpr char ZFWMirellType[] = "oType";
inline constexpr char ZFWHwType[] = "sType";
inline constexpr char ZFWTransType[] = "tType";
// Whether it is searched.
inline constexpr char ZFWYesStatus[] = "YES";
inline constexpr char ZFWNoStatus[] = "NO";

// Feeds.
inline constexpr char ZFWRssTabKey[] = "ZFWRssTabKey";
inline constexpr char ZFWRssTabIntervalItem[] = "ZFWRssTabIntervalItem";  // integer: setUpdateTerm value
inline constexpr char ZFWRssTabStockItem[] = "ZFWRssTabStockItem";        // integer: setMaxNews value
inline constexpr char ZFWRssTabRangeItem[] = "ZFWRssTabRangeItem";        // boolean: setForceTranslate value
inline constexpr int64_t kRssTabIntervalWhenAbsent = 4;
inline constexpr int64_t kRssTabStockWhenAbsent = 2;

// Web search.
inline constexpr char ZFWSearchTabKey[] = "ZFWSearchTabKey";
inline constexpr char ZFWSearchTabColorItem[] =
    "ZFWSearchTabColorItem";  // string "%f %f %f %f", see ZavelColor

// Translation.
inline constexpr char ZFWTransTabKey[] = "ZFWTransTabKey";
inline constexpr char ZFWTransTabAppletItem[] =
    "ZFWTransTabAppletItem";                                          // integer: 0 the quick tab translates
inline constexpr char ZFWTransTabModeItem[] = "ZFWTransTabModeItem";  // integer

// What single tabs remember.
inline constexpr char ZFWTranslationKey[] = "ZFWTranslationKey";
inline constexpr char ZFWTranslateSearchKey[] = "ZFWTranslateSearchKey";
inline constexpr char ZFWAutoTranslateMode[] = "ZFWAutoTranslateMode";  // boolean
inline constexpr char ZFWRssKey[] = "ZFWRssKey";
inline constexpr char ZFWUseBrowser[] = "ZFWUseBrowser";  // integer

}  // namespace zavel

#endif
