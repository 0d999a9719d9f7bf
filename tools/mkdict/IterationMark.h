// The mark 々, which stands for the kanji before it and which no search takes for a kanji.
#ifndef MKDICT_ITERATIONMARK_H
#define MKDICT_ITERATIONMARK_H

#include <string>
#include <string_view>

namespace zavel::mkdict {

// Shift_JIS with the kanji themselves in the place of the marks: 人々 as 人人, 部分々々 as 部分部分. So a
// written form is filed; hosts that take 々 in a query turn it into the same. A mark with nothing before it
// stays.
std::string withKanjiRepeated(std::string_view sjis);

}  // namespace zavel::mkdict

#endif
