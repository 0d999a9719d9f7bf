#include "translate/TranslationController2.h"

namespace zavel {

std::unique_ptr<TranslationController2> gTranslationController2;

}  // namespace zavel
