#pragma once

#include "Platform/Desktop/DBusMenu.h"
#include "Platform/Desktop/StatusItemIdentity.h"
#include "Platform/Desktop/StatusItemPresentation.h"
#include "Platform/Desktop/StatusNotifierObject.h"
#include "Platform/Desktop/StatusNotifierRendering.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>

#include <memory>

namespace platform {

/// The presentation for panels that follow the status notifier protocol. What they are shown is up
/// to a `StatusNotifierRendering`.
///
/// Makes itself known whenever a panel's watcher appears, which may be before, after or several
/// times during the life of the item. Never waits for an answer of a panel.
class StatusNotifierItem final : public StatusItemPresentation {
    Q_OBJECT

public:
    StatusNotifierItem(const StatusItemIdentity& identity,
                       std::unique_ptr<StatusNotifierRendering> rendering,
                       const QDBusConnection& bus, QObject* parent = nullptr);
    ~StatusNotifierItem() override;

    void show(const StatusItemContent& content) override;

private:
    void appear();
    void registerWithWatcher();
    QDBusMessage busCall(const QString& method) const;

    std::unique_ptr<StatusNotifierRendering> rendering_;
    QDBusConnection bus_;
    QString serviceName_;
    StatusNotifierObject object_;
    DBusMenu menu_;
    QDBusServiceWatcher watcher_;
    StatusItemContent content_;
    bool isOnBus_ = false;
};

} // namespace platform
