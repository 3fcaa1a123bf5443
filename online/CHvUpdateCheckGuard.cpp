#include "online/CHvUpdateCheckGuard.h"

namespace Hv::Http {

CHvUpdateCheckGuard& CHvUpdateCheckGuard::Instance() {
  static CHvUpdateCheckGuard guard;
  return guard;
}

}  // namespace Hv::Http
