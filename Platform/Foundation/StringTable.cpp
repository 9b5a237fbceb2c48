#include "Platform/Foundation/StringTable.h"

#include <QCoreApplication>

namespace platform {

QString localized(const char* context, const char* english) {
    return QCoreApplication::translate(context, english);
}

} // namespace platform
