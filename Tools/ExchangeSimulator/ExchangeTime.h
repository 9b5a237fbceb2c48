// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDateTime>

#include <chrono>

namespace simulator {

/// The time as the exchange has it, which need not be that of the client.
struct ExchangeTime {
    /// How far it is ahead of this machine's clock.
    std::chrono::milliseconds offset{0};
    /// Whether answers over HTTP tell it.
    bool isTold = true;
    /// How long answers have been in a cache before they arrive.
    std::chrono::seconds age{0};

    /// Milliseconds since 1970.
    qint64 now() const { return QDateTime::currentMSecsSinceEpoch() + offset.count(); }

    /// The value of a `Date` header.
    QByteArray date() const;
};

} // namespace simulator
