#include "Platform/StatusBar/AttributedTitle.h"

namespace platform {

QString AttributedTitle::plainText() const {
    QString text;
    for (const Run& run : runs)
        text += run.text;
    return text;
}

} // namespace platform
