// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Services/UserNotificationCenter.h"

#include "Platform/DBus/ServiceError.h"
#include "Platform/Foundation/StringTable.h"
#include "Platform/Services/NotificationService.h"

#include <QCoreApplication>
#include <QDir>
#include <QThread>
#include <QUrl>
#include <QVariant>

#include <utility>

namespace platform {

namespace {

enum class Lines { one, several };

/// What can be sent and shown of a text: the bus would cut it at a zero, and services that read
/// markup take other control characters for errors.
QString printable(const QString& text, Lines lines) {
    QString clean;
    clean.reserve(text.size());
    // The conversion puts the replacement character in the place of unpaired surrogates.
    for (const char32_t character : text.toUcs4()) {
        if (character == U'\t' || (character == U'\n' && lines == Lines::one))
            clean += QLatin1Char(' ');
        else if (character == U'\n' || QChar::category(character) != QChar::Other_Control)
            clean += QChar::fromUcs4(character);
    }
    return clean;
}

QString escaped(QString text) {
    return text.replace(QLatin1Char('&'), QStringLiteral("&amp;"))
        .replace(QLatin1Char('<'), QStringLiteral("&lt;"))
        .replace(QLatin1Char('>'), QStringLiteral("&gt;"));
}

/// A service takes a name or a URL.
QString iconArgument(const QString& icon) {
    return QDir::isAbsolutePath(icon) ? QUrl::fromLocalFile(icon).toString(QUrl::FullyEncoded)
                                      : icon;
}

QVariantMap hints(const NotificationSender& sender, const NotificationRequest& request) {
    constexpr uchar normalUrgency = 1;
    QVariantMap hints{
        {QStringLiteral("urgency"), QVariant::fromValue(normalUrgency)},
        {QStringLiteral("desktop-entry"), sender.desktopEntry},
    };
    if (!request.soundName.isEmpty())
        hints.insert(QStringLiteral("sound-name"), request.soundName);
    return hints;
}

/// The eight arguments of `Notify`.
QVariantList arguments(const NotificationSender& sender, const NotificationRequest& request,
                       const QStringList& capabilities) {
    constexpr uint replacesNone = 0;
    constexpr int serviceDecidesHowLong = -1;
    const QString body = printable(request.body, Lines::several);
    const bool readsMarkup = capabilities.contains(QStringLiteral("body-markup"));
    return {sender.name,
            replacesNone,
            iconArgument(sender.icon),
            printable(request.title, Lines::one),
            readsMarkup ? escaped(body) : body,
            QStringList(), // no actions
            hints(sender, request),
            serviceDecidesHowLong};
}

ServiceError worded(const ServiceError& error) {
    switch (error.code()) {
    case ServiceError::Code::unavailable:
        return {error.code(), localized("Platform", "There is no notification service.")};
    case ServiceError::Code::unanswered:
        return {error.code(), localized("Platform", "The notification service does not answer.")};
    case ServiceError::Code::refused:
        break;
    }
    return {error.code(), localized("Platform", "The notification service refused: %1")
                              .arg(error.localizedDescription())};
}

} // namespace

UserNotificationCenter::UserNotificationCenter(NotificationSender sender,
                                               const QDBusConnection& bus, Clock& clock)
    : sender_(std::move(sender)), service_(std::make_unique<NotificationService>(bus, clock)) {
    Q_ASSERT(QThread::currentThread() == QCoreApplication::instance()->thread());
}

UserNotificationCenter::~UserNotificationCenter() = default;

Task<bool> UserNotificationCenter::requestAuthorization() {
    try {
        co_await service_->findServer(authorizationLimit);
        co_return true;
    } catch (const ServiceError&) {
        co_return false;
    }
}

Task<> UserNotificationCenter::add(NotificationRequest request) {
    try {
        const QStringList capabilities = co_await service_->capabilities();
        co_await service_->notify(arguments(sender_, request, capabilities));
    } catch (const ServiceError& error) {
        throw worded(error);
    }
}

} // namespace platform
