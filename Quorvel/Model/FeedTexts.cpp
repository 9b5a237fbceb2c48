// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Model/FeedTexts.h"

#include "Platform/Foundation/StringTable.h"

#include <QDateTime>
#include <QLocale>

namespace quorvel {

using platform::Date;
using platform::localized;

namespace {

QDateTime localTime(Date date) {
    const auto sinceEpoch = platform::timeIntervalSince1970(date);
    return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(sinceEpoch.count() * 1000));
}

QString refusal(int status) {
    switch (status) {
    case 451:
        return localized("Quorvel",
                         "The exchange does not serve this place. Its data-only mirror may.");
    case 403:
        return localized(
            "Quorvel",
            "The exchange refuses requests from this network. Another network may help.");
    case 418:
        return localized(
            "Quorvel",
            "The exchange has banned this network for a time. Prices come back by themselves.");
    case 429:
        return localized(
            "Quorvel",
            "The exchange asks this network for a pause. Prices come back by themselves.");
    default:
        return localized("Quorvel", "The exchange refuses the connection.");
    }
}

} // namespace

QString FeedTexts::time(Date date, Date now) {
    const QDateTime local = localTime(date);
    const QLocale locale = QLocale::system();
    // Some locales have seconds in their short form.
    QString form = locale.timeFormat(QLocale::ShortFormat).remove(QStringLiteral(":ss"));
    if (local.date() != localTime(now).date())
        form.prepend(locale.dateFormat(QLocale::ShortFormat) + u' ');
    return locale.toString(local, form);
}

QString FeedTexts::headline(const FeedStatus::Outage& outage, Date now) {
    return localized("Quorvel", "No connection since %1").arg(time(outage.since, now));
}

QString FeedTexts::cause(const FeedStatus::Outage& outage) {
    return outage.status != 0 ? refusal(outage.status) : outage.reason;
}

QString FeedTexts::reason(const FeedStatus::Outage& outage, Date now) {
    QString text = cause(outage);
    text += text.isEmpty() ? QString() : QStringLiteral("\n");
    return text + (outage.until
                       ? localized("Quorvel", "Next try at %1").arg(time(*outage.until, now))
                       : localized("Quorvel", "It is tried again every few seconds."));
}

QString FeedTexts::notice(const FeedStatus::Outage& outage, Date now) {
    return headline(outage, now) + u'\n' + reason(outage, now);
}

QString FeedTexts::price(const FeedStatus& feed, const Symbol& symbol, Date now) {
    if (feed.of(symbol) == FeedStatus::Pair::untraded)
        return localized("Quorvel", "Not traded on the exchange");
    const auto arrival = feed.pricedAt(symbol);
    return arrival ? localized("Quorvel", "Price of %1").arg(time(*arrival, now)) : QString();
}

} // namespace quorvel
