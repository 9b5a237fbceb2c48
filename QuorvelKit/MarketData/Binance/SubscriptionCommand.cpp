// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/Binance/SubscriptionCommand.h"

#include "Platform/Foundation/LetterCase.h"
#include "Platform/JSON/JSONWriter.h"

#include <QByteArray>

#include <algorithm>
#include <iterator>
#include <vector>

namespace quorvel {

namespace {

std::vector<std::string> sortedStreamNames(const SymbolSet& symbols) {
    std::vector<std::string> names;
    names.reserve(symbols.size());
    std::ranges::transform(symbols, std::back_inserter(names), &SubscriptionCommand::streamName);
    std::ranges::sort(names);
    return names;
}

} // namespace

QString SubscriptionCommand::host() {
    return QStringLiteral("wss://stream.binance.com:9443/stream");
}

std::string SubscriptionCommand::streamName(const Symbol& symbol) {
    return platform::lowercased(symbol.id()) + "@ticker";
}

std::optional<QUrl> SubscriptionCommand::connectURL(const SymbolSet& symbols,
                                                    const QUrl& endpoint) {
    if (symbols.empty() || !endpoint.isValid())
        return std::nullopt;
    QString query = QStringLiteral("streams=");
    for (const std::string& name : sortedStreamNames(symbols)) {
        if (!query.endsWith(QLatin1Char('=')))
            query += QLatin1Char('/');
        query += QString::fromLatin1(
            QUrl::toPercentEncoding(QString::fromStdString(name), QByteArrayLiteral("@")));
    }
    QUrl url = endpoint;
    url.setQuery(query, QUrl::StrictMode);
    return url;
}

std::string SubscriptionCommand::controlMessage(Method method, const SymbolSet& symbols,
                                                std::int64_t id) {
    platform::JSONWriter writer;
    writer.beginObject().key("method").string(rawValue(method)).key("params").beginArray();
    for (const std::string& name : sortedStreamNames(symbols))
        writer.string(name);
    writer.endArray().key("id").integer(id).endObject();
    return writer.text();
}

SubscriptionCommand::Difference SubscriptionCommand::diff(const SymbolSet& current,
                                                          const SymbolSet& target) {
    Difference difference;
    std::ranges::set_difference(target, current,
                                std::inserter(difference.toAdd, difference.toAdd.end()));
    std::ranges::set_difference(current, target,
                                std::inserter(difference.toRemove, difference.toRemove.end()));
    return difference;
}

} // namespace quorvel
