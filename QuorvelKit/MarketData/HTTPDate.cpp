// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/HTTPDate.h"

#include <QDateTime>
#include <QLocale>

namespace quorvel {

std::optional<platform::Date> dateOfHeader(const QByteArray& value) {
    QDateTime date = QLocale::c().toDateTime(QString::fromLatin1(value),
                                             QStringLiteral("ddd, dd MMM yyyy hh:mm:ss 'GMT'"));
    if (!date.isValid())
        return std::nullopt;
    date.setTimeSpec(Qt::UTC);
    return platform::dateSince1970(std::chrono::milliseconds(date.toMSecsSinceEpoch()));
}

} // namespace quorvel
