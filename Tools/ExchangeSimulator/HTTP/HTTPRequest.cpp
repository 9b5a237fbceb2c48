// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tools/ExchangeSimulator/HTTP/HTTPRequest.h"

namespace simulator {

namespace {

QString decoded(const QByteArray& text) {
    return QString::fromUtf8(QByteArray::fromPercentEncoding(text));
}

} // namespace

QString HTTPRequest::path() const {
    return decoded(target.split('?').first());
}

QList<std::pair<QString, QString>> HTTPRequest::queryItems() const {
    QList<std::pair<QString, QString>> items;
    const qsizetype mark = target.indexOf('?');
    if (mark < 0)
        return items;
    for (const QByteArray& item : target.mid(mark + 1).split('&')) {
        const qsizetype equals = item.indexOf('=');
        if (equals >= 0)
            items.append({decoded(item.first(equals)), decoded(item.sliced(equals + 1))});
        else if (!item.isEmpty())
            items.append({decoded(item), QString()});
    }
    return items;
}

std::optional<QString> HTTPRequest::queryItem(QStringView name) const {
    for (const auto& [key, value] : queryItems()) {
        if (key == name)
            return value;
    }
    return std::nullopt;
}

QByteArray HTTPRequest::header(QByteArrayView name) const {
    for (const auto& [key, value] : headers) {
        if (key == name)
            return value;
    }
    return {};
}

} // namespace simulator
