// Font heights where there are no fonts: a terminal and a web page choose their own.
#ifndef PORT_LINUX_BASE_NOMINALFONTMETRICS_H
#define PORT_LINUX_BASE_NOMINALFONTMETRICS_H

#include "platform/FontMetrics.h"

namespace zavel {

// Every font is taken for one that fills the em box the way Japanese fonts do: 0.88 of the size above the
// base line, 0.12 below it. Nothing is measured.
class NominalFontMetrics : public FontMetrics {
 public:
  FontHeights heights(const std::string& name, double size) override;
};

}  // namespace zavel

#endif
