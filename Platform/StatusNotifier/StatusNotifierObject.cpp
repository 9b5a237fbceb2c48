// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusNotifier/StatusNotifierObject.h"

#include <QCursor>
#include <QDBusMessage>
#include <QDBusObjectPath>

#include <utility>

namespace platform {

const QString StatusNotifierObject::menuPath = QStringLiteral("/MenuBar");

StatusNotifierObject::StatusNotifierObject(const StatusItemIdentity& identity,
                                           StatusItemEvents& events, int ordinal)
    : DBusObject(QStringLiteral("org.kde.StatusNotifierItem"), nullptr),
      identity_(identity),
      events_(events),
      path_(QStringLiteral("/StatusNotifierItem")) {
    if (ordinal > 1)
        path_ += u'/' + QString::number(ordinal);
    registerStatusNotifierTypes();
    addMethods();
}

void StatusNotifierObject::addMethods() {
    const auto activate = [this](const QVariantList& arguments) {
        reportActivation({arguments[0].toInt(), arguments[1].toInt()});
        return QVariantList();
    };
    const auto activateAtPointer = [this](const QVariantList&) {
        reportActivation(QCursor::pos());
        return QVariantList();
    };
    const auto ignore = [](const QVariantList&) { return QVariantList(); };
    addMethod("Activate", "ii", "", activate);
    addMethod("SecondaryActivate", "ii", "", activate);
    addMethod("XAyatanaSecondaryActivate", "u", "", activateAtPointer);
    addMethod("ContextMenu", "ii", "", ignore);
    addMethod("Scroll", "is", "", ignore);
    // Title and the other icons never change.
    addSignal("NewIcon", "");
    addSignal("NewStatus", "s");
    addSignal("NewToolTip", "");
    addSignal("XAyatanaNewLabel", "ss");
}

void StatusNotifierObject::reportActivation(QPoint point) {
    // Whoever listens may open windows or end the item; the panel is answered before that.
    QMetaObject::invokeMethod(
        this, [this, point] { Q_EMIT events_.activated(point); }, Qt::QueuedConnection);
}

QVariantMap StatusNotifierObject::properties() const {
    const auto noPixmaps = QVariant::fromValue(IconPixmapList());
    QVariantMap all{
        {QStringLiteral("Category"), QStringLiteral("ApplicationStatus")},
        {QStringLiteral("Id"), identity_.id},
        {QStringLiteral("Title"), identity_.title},
        {QStringLiteral("Status"),
         state_.isPassive ? QStringLiteral("Passive") : QStringLiteral("Active")},
        {QStringLiteral("WindowId"), 0},
        {QStringLiteral("IconThemePath"), QString()},
        {QStringLiteral("IconName"), state_.iconName},
        {QStringLiteral("IconPixmap"), QVariant::fromValue(state_.iconPixmaps)},
        {QStringLiteral("IconAccessibleDesc"), identity_.title},
        {QStringLiteral("OverlayIconName"), QString()},
        {QStringLiteral("OverlayIconPixmap"), noPixmaps},
        {QStringLiteral("AttentionIconName"), QString()},
        {QStringLiteral("AttentionIconPixmap"), noPixmaps},
        {QStringLiteral("AttentionAccessibleDesc"), QString()},
        // An item that never asks for attention has no use for it, and widgets get to see it.
        {QStringLiteral("AttentionMovieName"), state_.widgetHint},
        {QStringLiteral("ToolTip"),
         QVariant::fromValue(NotifierToolTip{{}, {}, state_.toolTip, state_.toolTipBody})},
        {QStringLiteral("ItemIsMenu"), false},
        {QStringLiteral("Menu"), QVariant::fromValue(QDBusObjectPath(menuPath))},
        {QStringLiteral("XAyatanaOrderingIndex"), 0U},
    };
    if (state_.label) {
        all.insert(QStringLiteral("XAyatanaLabel"), *state_.label);
        all.insert(QStringLiteral("XAyatanaLabelGuide"), state_.labelGuide);
    }
    return all;
}

QList<QDBusMessage> StatusNotifierObject::setState(StatusNotifierState state) {
    const StatusNotifierState previous = std::exchange(state_, std::move(state));
    QList<QDBusMessage> changes;
    if (state_.iconName != previous.iconName || state_.iconPixmaps != previous.iconPixmaps ||
        state_.widgetHint != previous.widgetHint)
        changes += signalMessage(path_, QStringLiteral("NewIcon"));
    // The arguments matter: panels take the label from them and do not read it again. Empty ones
    // take the label away.
    if (state_.label != previous.label || state_.labelGuide != previous.labelGuide)
        changes += signalMessage(path_, QStringLiteral("XAyatanaNewLabel"),
                                 {state_.label.value_or(QString()), state_.labelGuide});
    if (state_.toolTip != previous.toolTip || state_.toolTipBody != previous.toolTipBody)
        changes += signalMessage(path_, QStringLiteral("NewToolTip"));
    return changes;
}

QDBusMessage StatusNotifierObject::farewell() const {
    return signalMessage(path_, QStringLiteral("NewStatus"), {QStringLiteral("Passive")});
}

} // namespace platform
