// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Foundation/StringTable.h"

#include <QCoreApplication>

namespace platform {

QString localized(const char* context, const char* english) {
    return QCoreApplication::translate(context, english);
}

} // namespace platform
