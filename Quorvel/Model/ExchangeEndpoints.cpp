// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Model/ExchangeEndpoints.h"

#include <QHostAddress>

namespace quorvel {

namespace {

bool isLoopback(const QString& host) {
    return host == QStringLiteral("localhost") || QHostAddress(host).isLoopback();
}

QUrl usable(const platform::UserDefaults& defaults, const QString& key, const QString& scheme,
            const QUrl& fallback) {
    const QUrl url(defaults.string(key).value_or(QString()).trimmed(), QUrl::StrictMode);
    if (!url.isValid() || url.host().isEmpty())
        return fallback;
    const bool isEncrypted = url.scheme() == scheme + u's';
    const bool isLocal = url.scheme() == scheme && isLoopback(url.host());
    return isEncrypted || isLocal ? url : fallback;
}

} // namespace

const QString ExchangeEndpoints::restKey = QStringLiteral("exchange.restURL");
const QString ExchangeEndpoints::streamKey = QStringLiteral("exchange.streamURL");

ExchangeEndpoints ExchangeEndpoints::fromDefaults(const platform::UserDefaults& defaults,
                                                  const ExchangeEndpoints& own) {
    return {usable(defaults, restKey, QStringLiteral("http"), own.rest),
            usable(defaults, streamKey, QStringLiteral("ws"), own.stream)};
}

} // namespace quorvel
