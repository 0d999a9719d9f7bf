#include "config/ZavelCommunication.h"

namespace zavel {

std::unique_ptr<ZavelCommunication> gZavelCommunication;

}  // namespace zavel
