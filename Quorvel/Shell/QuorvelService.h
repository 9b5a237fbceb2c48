// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/DBus/DBusObject.h"
#include "QuorvelKit/Feed/FeedStatus.h"
#include "QuorvelKit/StatusBar/StatusBarSegment.h"
#include "QuorvelKit/Stores/DisplaySettings.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QPoint>
#include <QString>

#include <optional>
#include <vector>

namespace quorvel {

/// The program on the session bus for panel widgets, bars and scripts: name and interface
/// `org.quorvel.Quorvel1`, described in docs/bus.md. Main thread.
class QuorvelService final : public platform::DBusObject {
    Q_OBJECT

public:
    /// Asks for the name and goes on: with another instance on the bus, the name comes when that
    /// one ends.
    explicit QuorvelService(const QDBusConnection& bus);
    ~QuorvelService() override;

    /// The user's colours by the name that widgets know them by.
    static QString colorSchemeName(PriceColorScheme scheme);

    /// What the line says from now on. Told to clients only when it changes.
    void setLine(const std::vector<StatusBarSegment>& segments,
                 const std::optional<FeedStatus::Outage>& outage, const DisplaySettings& display);

    /// Whether a client shows the line in the item's stead.
    bool isLineShown() const { return !shownBy_.isEmpty(); }

Q_SIGNALS:
    /// A client asks for the panel, where it can, beside a point in global coordinates.
    void panelRequested(std::optional<QPoint> point);
    void lineShownChanged();

protected:
    QVariantMap properties() const override;

private:
    void addMethods();
    void setShownBy(const QStringList& clients);

    QDBusConnection bus_;
    QDBusServiceWatcher clients_;
    std::vector<StatusBarSegment> segments_;
    QVariantMap line_; ///< the properties that tell it
    QStringList shownBy_;
};

} // namespace quorvel
