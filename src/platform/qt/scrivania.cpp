#include "platform/qt/scrivania.h"

namespace platform {

Scrivania& scrivania() {
    std::any& parte = ambiente().scrivania;
    if (!parte.has_value()) parte = Scrivania();
    return *std::any_cast<Scrivania>(&parte);
}

}  // namespace platform
