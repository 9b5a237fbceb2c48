#include "Platform/Desktop/DynamicColor.h"

namespace platform {

QColor DynamicColor::resolved(Appearance appearance) const {
    return appearance == Appearance::dark ? dark : light;
}

} // namespace platform
