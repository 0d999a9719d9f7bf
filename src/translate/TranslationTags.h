// Tags of translation directions, in menus and in notifications.
#ifndef TRANSLATE_TRANSLATIONTAGS_H
#define TRANSLATE_TRANSLATIONTAGS_H

namespace zavel {

inline constexpr int kAutoTranslateTag = 5;
inline constexpr int kEtoJTranslateTag = 6;
inline constexpr int kJtoETranslateTag = 7;

}  // namespace zavel

#endif
