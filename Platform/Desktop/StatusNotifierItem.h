#pragma once

#include "Platform/Desktop/DBusMenu.h"
#include "Platform/Desktop/StatusItemIdentity.h"
#include "Platform/Desktop/StatusItemPresentation.h"
#include "Platform/Desktop/StatusNotifierObject.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>

#include <optional>

namespace platform {

/// The presentation for panels that follow the status notifier protocol and write the label beside
/// the icon: the icon as pixmaps and as a file, the title as plain text.
///
/// Makes itself known whenever a panel's watcher appears, which may be before, after or several
/// times during the life of the item. Never waits for an answer of a panel.
class StatusNotifierItem final : public StatusItemPresentation {
    Q_OBJECT

public:
    StatusNotifierItem(StatusItemIdentity identity, const QDBusConnection& bus,
                       QObject* parent = nullptr);
    ~StatusNotifierItem() override;

    void show(const StatusItemContent& content) override;

private:
    void appear();
    void registerWithWatcher();
    QDBusMessage busCall(const QString& method) const;
    void takeImage(const StatusItemImage& image);

    StatusItemIdentity identity_;
    QDBusConnection bus_;
    QString serviceName_;
    StatusNotifierObject object_;
    DBusMenu menu_;
    QDBusServiceWatcher watcher_;
    StatusNotifierState state_;
    /// What the icon in `state_` was made of.
    std::optional<StatusItemImage> image_;
    bool isOnBus_ = false;
};

} // namespace platform
