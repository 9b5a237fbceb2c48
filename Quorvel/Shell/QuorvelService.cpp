// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Shell/QuorvelService.h"

#include "Platform/DBus/DBusCall.h"
#include "Quorvel/Model/FeedTexts.h"

#include <QDBusMessage>
#include <QDBusMetaType>

#include <utility>

namespace quorvel {

namespace {

const auto serviceName = QStringLiteral("org.quorvel.Quorvel1");
const auto servicePath = QStringLiteral("/org/quorvel/Quorvel1");

/// A text with its direction, as on the bus.
struct BusSegment {
    QString text;
    QString direction;
};

QDBusArgument& operator<<(QDBusArgument& argument, const BusSegment& segment) {
    argument.beginStructure();
    argument << segment.text << segment.direction;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, BusSegment& segment) {
    argument.beginStructure();
    argument >> segment.text >> segment.direction;
    argument.endStructure();
    return argument;
}

QString nameOf(PriceDirection direction) {
    switch (direction) {
    case PriceDirection::up:
        return QStringLiteral("up");
    case PriceDirection::down:
        return QStringLiteral("down");
    case PriceDirection::flat:
        break;
    }
    return QStringLiteral("flat");
}

/// Whole seconds since 1970; 0 where absent.
qlonglong secondsOf(const std::optional<platform::Date>& date) {
    return date ? static_cast<qlonglong>(platform::timeIntervalSince1970(*date).count()) : 0;
}

} // namespace

QuorvelService::QuorvelService(const QDBusConnection& bus)
    : DBusObject(serviceName, nullptr), bus_(bus) {
    qDBusRegisterMetaType<BusSegment>();
    qDBusRegisterMetaType<QList<BusSegment>>();
    addMethods();
    setLine({}, std::nullopt, {});
    if (!bus_.isConnected())
        return;
    clients_.setConnection(bus_);
    clients_.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    connect(&clients_, &QDBusServiceWatcher::serviceUnregistered, this,
            [this](const QString& client) {
                QStringList clients = shownBy_;
                clients.removeAll(client);
                setShownBy(clients);
            });
    // The object first: whoever sees the name may call at once.
    bus_.registerVirtualObject(servicePath, this);
    bus_.send(platform::callOfBus(QStringLiteral("RequestName")) << serviceName << 0U);
}

QuorvelService::~QuorvelService() {
    if (!bus_.isConnected())
        return;
    bus_.send(platform::callOfBus(QStringLiteral("ReleaseName")) << serviceName);
    bus_.unregisterObject(servicePath);
}

QString QuorvelService::colorSchemeName(PriceColorScheme scheme) {
    const std::string_view name = rawValue(scheme);
    return QString::fromLatin1(name.data(), std::ssize(name));
}

void QuorvelService::addMethods() {
    // Whoever listens may open windows; the caller is answered before that.
    const auto request = [this](std::optional<QPoint> point) {
        QMetaObject::invokeMethod(
            this, [this, point] { Q_EMIT panelRequested(point); }, Qt::QueuedConnection);
        return QVariantList();
    };
    addMethod("OpenPanel", "", "", [request](const QVariantList&) { return request({}); });
    addMethod("TogglePanelAt", "ii", "", [request](const QVariantList& arguments) {
        return request(QPoint(arguments[0].toInt(), arguments[1].toInt()));
    });
    addMethod("ShowLine", "", "", [this](const QVariantList&) {
        if (!shownBy_.contains(caller()))
            setShownBy(shownBy_ + QStringList(caller()));
        return QVariantList();
    });
    addMethod("HideLine", "", "", [this](const QVariantList&) {
        QStringList clients = shownBy_;
        clients.removeAll(caller());
        setShownBy(clients);
        return QVariantList();
    });
}

void QuorvelService::setLine(const std::vector<StatusBarSegment>& segments,
                             const std::optional<FeedStatus::Outage>& outage,
                             const DisplaySettings& display) {
    QList<BusSegment> all;
    for (const StatusBarSegment& segment : segments)
        all.append({segment.text, nameOf(segment.direction)});
    const bool isLive = !outage;
    const auto since = outage ? std::optional(outage->since) : std::nullopt;
    const auto next = outage ? outage->until : std::nullopt;
    QVariantMap line{
        {QStringLiteral("Segments"), QVariant::fromValue(all)},
        {QStringLiteral("ColorScheme"), colorSchemeName(display.colorScheme)},
        {QStringLiteral("ShowsArrows"), display.showsDirectionArrow},
        {QStringLiteral("IsLive"), isLive},
        {QStringLiteral("NotLiveSince"), secondsOf(since)},
        {QStringLiteral("NotLiveReason"), outage ? FeedTexts::cause(*outage) : QString()},
        {QStringLiteral("NextTry"), secondsOf(next)},
    };
    const QVariantMap before = std::exchange(line_, std::move(line));
    QVariantMap changed;
    for (const auto [name, value] : line_.asKeyValueRange()) {
        if (name == QStringLiteral("Segments") ? segments != segments_ : value != before[name])
            changed.insert(name, value);
    }
    segments_ = segments;
    if (!before.isEmpty() && !changed.isEmpty())
        bus_.send(propertiesChangedMessage(servicePath, changed));
}

void QuorvelService::setShownBy(const QStringList& clients) {
    if (clients == shownBy_)
        return;
    const bool wasShown = isLineShown();
    shownBy_ = clients;
    clients_.setWatchedServices(shownBy_);
    bus_.send(propertiesChangedMessage(servicePath, {{QStringLiteral("LineShownBy"), shownBy_}}));
    if (wasShown != isLineShown())
        QMetaObject::invokeMethod(this, &QuorvelService::lineShownChanged, Qt::QueuedConnection);
}

QVariantMap QuorvelService::properties() const {
    QVariantMap all = line_;
    all.insert(QStringLiteral("LineShownBy"), shownBy_);
    return all;
}

} // namespace quorvel
