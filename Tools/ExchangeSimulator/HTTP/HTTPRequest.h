// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>
#include <utility>

namespace simulator {

using HTTPHeaders = QList<std::pair<QByteArray, QByteArray>>;

/// One request as it came in.
struct HTTPRequest {
    QByteArray method;
    /// The request target as sent: percent-encoding, or raw UTF-8, left as it was.
    QByteArray target;
    /// In the order received; names in lower case.
    HTTPHeaders headers;
    QByteArray body;
    /// Whether the client lets the connection be used again.
    bool keepAlive = true;

    /// The target's path, percent-decoded.
    QString path() const;
    /// The decoded query items in order; an item without "=" has an empty value.
    QList<std::pair<QString, QString>> queryItems() const;
    /// The first query item of that name; absent when there is none.
    std::optional<QString> queryItem(QStringView name) const;
    /// The first header of that lower-case name; empty when there is none.
    QByteArray header(QByteArrayView name) const;
};

} // namespace simulator
