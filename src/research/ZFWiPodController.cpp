#include "research/ZFWiPodController.h"

namespace zavel {

std::unique_ptr<ZFWiPodController> gZFWiPod;

}  // namespace zavel
