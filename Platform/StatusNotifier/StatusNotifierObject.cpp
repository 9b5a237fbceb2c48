// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusNotifier/StatusNotifierObject.h"

#include <QCursor>
#include <QDBusMessage>
#include <QDBusObjectPath>

#include <utility>

namespace platform {

namespace {

const auto interfaceName = QStringLiteral("org.kde.StatusNotifierItem");

// Title, status and the other icons never change, so there are no signals for them.
const auto interfaceDescription = QStringLiteral(R"xml(
  <interface name="org.kde.StatusNotifierItem">
    <property name="Category" type="s" access="read"/>
    <property name="Id" type="s" access="read"/>
    <property name="Title" type="s" access="read"/>
    <property name="Status" type="s" access="read"/>
    <property name="WindowId" type="i" access="read"/>
    <property name="IconThemePath" type="s" access="read"/>
    <property name="IconName" type="s" access="read"/>
    <property name="IconPixmap" type="a(iiay)" access="read"/>
    <property name="IconAccessibleDesc" type="s" access="read"/>
    <property name="OverlayIconName" type="s" access="read"/>
    <property name="OverlayIconPixmap" type="a(iiay)" access="read"/>
    <property name="AttentionIconName" type="s" access="read"/>
    <property name="AttentionIconPixmap" type="a(iiay)" access="read"/>
    <property name="AttentionAccessibleDesc" type="s" access="read"/>
    <property name="AttentionMovieName" type="s" access="read"/>
    <property name="ToolTip" type="(sa(iiay)ss)" access="read"/>
    <property name="ItemIsMenu" type="b" access="read"/>
    <property name="Menu" type="o" access="read"/>
    <property name="XAyatanaLabel" type="s" access="read"/>
    <property name="XAyatanaLabelGuide" type="s" access="read"/>
    <property name="XAyatanaOrderingIndex" type="u" access="read"/>
    <method name="Activate">
      <arg name="x" type="i" direction="in"/>
      <arg name="y" type="i" direction="in"/>
    </method>
    <method name="SecondaryActivate">
      <arg name="x" type="i" direction="in"/>
      <arg name="y" type="i" direction="in"/>
    </method>
    <method name="XAyatanaSecondaryActivate">
      <arg name="timestamp" type="u" direction="in"/>
    </method>
    <method name="ContextMenu">
      <arg name="x" type="i" direction="in"/>
      <arg name="y" type="i" direction="in"/>
    </method>
    <method name="Scroll">
      <arg name="delta" type="i" direction="in"/>
      <arg name="orientation" type="s" direction="in"/>
    </method>
    <signal name="NewIcon"/>
    <signal name="NewToolTip"/>
    <signal name="XAyatanaNewLabel">
      <arg name="label" type="s"/>
      <arg name="guide" type="s"/>
    </signal>
  </interface>
)xml");

} // namespace

const QString StatusNotifierObject::path = QStringLiteral("/StatusNotifierItem");
const QString StatusNotifierObject::menuPath = QStringLiteral("/MenuBar");

StatusNotifierObject::StatusNotifierObject(const StatusItemIdentity& identity,
                                           StatusItemEvents& events)
    : DBusObject(interfaceName, interfaceDescription, nullptr),
      identity_(identity),
      events_(events) {
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
    addMethod(QStringLiteral("Activate"), QStringLiteral("ii"), activate);
    addMethod(QStringLiteral("SecondaryActivate"), QStringLiteral("ii"), activate);
    addMethod(QStringLiteral("XAyatanaSecondaryActivate"), QStringLiteral("u"), activateAtPointer);
    addMethod(QStringLiteral("ContextMenu"), QStringLiteral("ii"), ignore);
    addMethod(QStringLiteral("Scroll"), QStringLiteral("is"), ignore);
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
        {QStringLiteral("Status"), QStringLiteral("Active")},
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
        {QStringLiteral("AttentionMovieName"), QString()},
        {QStringLiteral("ToolTip"),
         QVariant::fromValue(NotifierToolTip{{}, {}, state_.toolTip, {}})},
        {QStringLiteral("ItemIsMenu"), false},
        {QStringLiteral("Menu"), QVariant::fromValue(QDBusObjectPath(menuPath))},
        {QStringLiteral("XAyatanaOrderingIndex"), 0U},
    };
    // One panel drops an item whose label is there but empty.
    if (!state_.label.isEmpty()) {
        all.insert(QStringLiteral("XAyatanaLabel"), state_.label);
        all.insert(QStringLiteral("XAyatanaLabelGuide"), state_.labelGuide);
    }
    return all;
}

QList<QDBusMessage> StatusNotifierObject::setState(StatusNotifierState state) {
    const StatusNotifierState previous = std::exchange(state_, std::move(state));
    QList<QDBusMessage> changes;
    if (state_.iconName != previous.iconName || state_.iconPixmaps != previous.iconPixmaps)
        changes += signalMessage(path, QStringLiteral("NewIcon"));
    // The arguments matter: panels take the label from them and do not read it again. Empty ones
    // take the label away.
    if (state_.label != previous.label || state_.labelGuide != previous.labelGuide)
        changes += signalMessage(path, QStringLiteral("XAyatanaNewLabel"),
                                 {state_.label, state_.labelGuide});
    if (state_.toolTip != previous.toolTip)
        changes += signalMessage(path, QStringLiteral("NewToolTip"));
    return changes;
}

} // namespace platform
