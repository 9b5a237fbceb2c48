// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tools/ExchangeSimulator/ExchangeTime.h"

#include <QLocale>

namespace simulator {

QByteArray ExchangeTime::date() const {
    const qint64 produced = now() - std::chrono::milliseconds(age).count();
    return QLocale::c()
        .toString(QDateTime::fromMSecsSinceEpoch(produced, Qt::UTC),
                  QStringLiteral("ddd, dd MMM yyyy hh:mm:ss 'GMT'"))
        .toLatin1();
}

} // namespace simulator
