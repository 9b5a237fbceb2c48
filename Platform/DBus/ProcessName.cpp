// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/DBus/ProcessName.h"

#include <QFile>

namespace platform {

QString processName(qint64 process) {
    QFile file(QStringLiteral("/proc/%1/comm").arg(process));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromLocal8Bit(file.readLine().trimmed());
}

} // namespace platform
