#include "Platform/Desktop/StatusNotifierItem.h"

#include "Platform/Desktop/StatusItemIconFile.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCall>

#include <utility>

namespace platform {

namespace {

/// Sides of the pixmaps in pixels: a panel's usual icon, and the same for screens of double
/// density.
constexpr int normalSize = 22;
constexpr int doubleSize = 44;

const auto watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");

/// A name of the item's own; the number tells the items of one process apart.
QString nextServiceName() {
    static int count = 0;
    return QStringLiteral("org.kde.StatusNotifierItem-%1-%2")
        .arg(QCoreApplication::applicationPid())
        .arg(++count);
}

/// The label with every digit as wide as digits get, so that the room does not depend on the price.
QString guideOf(QString label) {
    for (QChar& character : label) {
        if (character >= QLatin1Char('0') && character <= QLatin1Char('9'))
            character = QLatin1Char('8');
    }
    return label;
}

} // namespace

StatusNotifierItem::StatusNotifierItem(StatusItemIdentity identity, const QDBusConnection& bus,
                                       QObject* parent)
    : StatusItemPresentation(parent),
      identity_(std::move(identity)),
      bus_(bus),
      serviceName_(nextServiceName()),
      object_(identity_, nullptr),
      menu_(bus, StatusNotifierObject::menuPath, nullptr) {
    connect(&object_, &StatusNotifierObject::activated, this, &StatusItemPresentation::activated);
    connect(&menu_, &DBusMenu::triggered, this, &StatusItemPresentation::menuTriggered);
}

StatusNotifierItem::~StatusNotifierItem() {
    if (!isOnBus_)
        return;
    bus_.send(busCall(QStringLiteral("ReleaseName")) << serviceName_);
    bus_.unregisterObject(StatusNotifierObject::path);
    bus_.unregisterObject(StatusNotifierObject::menuPath);
}

void StatusNotifierItem::show(const StatusItemContent& content) {
    menu_.setEntries(content.menu);
    if (image_ != content.image)
        takeImage(content.image);
    state_.label = content.title.plainText();
    state_.labelGuide = guideOf(state_.label);
    state_.toolTip = content.toolTip;
    const QList<QDBusMessage> changes = object_.setState(state_);
    if (!isOnBus_) {
        appear();
        return;
    }
    for (const QDBusMessage& change : changes)
        bus_.send(change);
}

void StatusNotifierItem::appear() {
    if (!bus_.isConnected())
        return;
    isOnBus_ = true;
    bus_.registerVirtualObject(StatusNotifierObject::path, &object_);
    bus_.registerVirtualObject(StatusNotifierObject::menuPath, &menu_);
    constexpr uint doNotQueue = 4;
    bus_.asyncCall(busCall(QStringLiteral("RequestName")) << serviceName_ << doNotQueue);

    watcher_.setConnection(bus_);
    watcher_.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    watcher_.addWatchedService(watcherService);
    connect(&watcher_, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& newOwner) {
                if (newOwner.isEmpty())
                    return;
                // The icon's file may have been cleaned away since.
                takeImage(StatusItemImage(*image_));
                registerWithWatcher();
            });
    registerWithWatcher();
}

void StatusNotifierItem::registerWithWatcher() {
    auto call = QDBusMessage::createMethodCall(
        watcherService, QStringLiteral("/StatusNotifierWatcher"), watcherService,
        QStringLiteral("RegisterStatusNotifierItem"));
    // A panel brings its watcher up itself.
    call.setAutoStartService(false);
    // Not waited for: some watchers ask the item back before they answer.
    bus_.asyncCall(call << serviceName_);
}

QDBusMessage StatusNotifierItem::busCall(const QString& method) const {
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                          QStringLiteral("/org/freedesktop/DBus"),
                                          QStringLiteral("org.freedesktop.DBus"), method);
}

void StatusNotifierItem::takeImage(const StatusItemImage& image) {
    image_ = image;
    const QImage large = image.atSize(doubleSize);
    state_.iconName = StatusItemIconFile::pathOf(large, identity_.iconDirectory, identity_.id);
    state_.iconPixmaps = {IconPixmap::fromImage(image.atSize(normalSize)),
                          IconPixmap::fromImage(large)};
}

} // namespace platform
