// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusNotifier/DBusMenu.h"

#include <QDBusMessage>
#include <QGuiApplication>

#include <algorithm>
#include <utility>

namespace platform {

namespace {

const auto interfaceName = QStringLiteral("com.canonical.dbusmenu");

const auto interfaceDescription = QStringLiteral(R"xml(
  <interface name="com.canonical.dbusmenu">
    <property name="Version" type="u" access="read"/>
    <property name="TextDirection" type="s" access="read"/>
    <property name="Status" type="s" access="read"/>
    <property name="IconThemePath" type="as" access="read"/>
    <method name="GetLayout">
      <arg name="parentId" type="i" direction="in"/>
      <arg name="recursionDepth" type="i" direction="in"/>
      <arg name="propertyNames" type="as" direction="in"/>
      <arg name="revision" type="u" direction="out"/>
      <arg name="layout" type="(ia{sv}av)" direction="out"/>
    </method>
    <method name="GetGroupProperties">
      <arg name="ids" type="ai" direction="in"/>
      <arg name="propertyNames" type="as" direction="in"/>
      <arg name="properties" type="a(ia{sv})" direction="out"/>
    </method>
    <method name="GetProperty">
      <arg name="id" type="i" direction="in"/>
      <arg name="name" type="s" direction="in"/>
      <arg name="value" type="v" direction="out"/>
    </method>
    <method name="Event">
      <arg name="id" type="i" direction="in"/>
      <arg name="eventId" type="s" direction="in"/>
      <arg name="data" type="v" direction="in"/>
      <arg name="timestamp" type="u" direction="in"/>
    </method>
    <method name="EventGroup">
      <arg name="events" type="a(isvu)" direction="in"/>
      <arg name="idErrors" type="ai" direction="out"/>
    </method>
    <method name="AboutToShow">
      <arg name="id" type="i" direction="in"/>
      <arg name="needUpdate" type="b" direction="out"/>
    </method>
    <method name="AboutToShowGroup">
      <arg name="ids" type="ai" direction="in"/>
      <arg name="updatesNeeded" type="ai" direction="out"/>
      <arg name="idErrors" type="ai" direction="out"/>
    </method>
    <signal name="ItemsPropertiesUpdated">
      <arg name="updatedProps" type="a(ia{sv})"/>
      <arg name="removedProps" type="a(ias)"/>
    </signal>
    <signal name="LayoutUpdated">
      <arg name="revision" type="u"/>
      <arg name="parent" type="i"/>
    </signal>
  </interface>
)xml");

constexpr int rootId = 0;

/// An underscore would mark the next letter as access key; two of them are drawn as one.
QString labelOf(const MenuEntry& entry) {
    return QString(entry.text).replace(QLatin1Char('_'), QStringLiteral("__"));
}

/// What differs from a panel's defaults: enabled, visible, an ordinary item.
QVariantMap propertiesOf(const MenuEntry& entry) {
    if (entry.isSeparator)
        return {{QStringLiteral("type"), QStringLiteral("separator")}};
    QVariantMap properties{{QStringLiteral("label"), labelOf(entry)}};
    if (!entry.isEnabled)
        properties.insert(QStringLiteral("enabled"), false);
    return properties;
}

bool haveSameLayout(const std::vector<MenuEntry>& left, const std::vector<MenuEntry>& right) {
    return std::ranges::equal(left, right, [](const MenuEntry& one, const MenuEntry& other) {
        return one.isSeparator == other.isSeparator && one.id == other.id;
    });
}

[[noreturn]] void refuseId() {
    throw DBusCallError(QDBusError::InvalidArgs, "No such menu item");
}

} // namespace

DBusMenu::DBusMenu(const QDBusConnection& bus, QString path, QObject* parent)
    : DBusObject(interfaceName, interfaceDescription, parent), bus_(bus), path_(std::move(path)) {
    registerDBusMenuTypes();
    addMethods();
}

void DBusMenu::addMethods() {
    const auto add = [this](const char* name, const char* signature, auto function) {
        addMethod(QString::fromLatin1(name), QString::fromLatin1(signature),
                  [this, function](const QVariantList& arguments) {
                      return (this->*function)(arguments);
                  });
    };
    add("GetLayout", "iias", &DBusMenu::layout);
    add("GetGroupProperties", "aias", &DBusMenu::groupProperties);
    add("GetProperty", "is", &DBusMenu::property);
    add("Event", "isvu", &DBusMenu::answerEvent);
    add("EventGroup", "a(isvu)", &DBusMenu::answerEventGroup);
    add("AboutToShow", "i", &DBusMenu::aboutToShow);
    add("AboutToShowGroup", "ai", &DBusMenu::aboutToShowGroup);
}

void DBusMenu::setEntries(std::vector<MenuEntry> entries) {
    if (entries == entries_)
        return;
    if (haveSameLayout(entries, entries_))
        updateProperties(std::move(entries));
    else
        replaceLayout(std::move(entries));
}

void DBusMenu::replaceLayout(std::vector<MenuEntry> entries) {
    firstBusId_ = busIdAt(entries_.size());
    entries_ = std::move(entries);
    ++revision_;
    bus_.send(signalMessage(path_, QStringLiteral("LayoutUpdated"), {revision_, rootId}));
}

void DBusMenu::updateProperties(std::vector<MenuEntry> entries) {
    MenuItemPropertiesList updated;
    MenuItemRemovedPropertiesList removed;
    for (std::size_t index = 0; index < entries.size(); ++index) {
        const MenuEntry& now = entries[index];
        const MenuEntry& before = entries_[index];
        QVariantMap changed;
        if (now.text != before.text)
            changed.insert(QStringLiteral("label"), labelOf(now));
        if (!now.isEnabled && before.isEnabled)
            changed.insert(QStringLiteral("enabled"), false);
        if (!changed.isEmpty())
            updated.append({busIdAt(index), changed});
        if (now.isEnabled && !before.isEnabled)
            removed.append({busIdAt(index), {QStringLiteral("enabled")}});
    }
    entries_ = std::move(entries);
    bus_.send(signalMessage(path_, QStringLiteral("ItemsPropertiesUpdated"),
                            {QVariant::fromValue(updated), QVariant::fromValue(removed)}));
}

QVariantMap DBusMenu::properties() const {
    const bool isRightToLeft = QGuiApplication::isRightToLeft();
    return {
        {QStringLiteral("Version"), 3U},
        {QStringLiteral("Status"), QStringLiteral("normal")},
        {QStringLiteral("TextDirection"),
         isRightToLeft ? QStringLiteral("rtl") : QStringLiteral("ltr")},
        {QStringLiteral("IconThemePath"), QStringList()},
    };
}

bool DBusMenu::isKnown(int busId) const {
    return busId == rootId ||
           (busId >= firstBusId_ && busId - firstBusId_ < static_cast<int>(entries_.size()));
}

QList<int> DBusMenu::unknownAmong(const QList<int>& busIds) const {
    QList<int> unknown;
    std::ranges::copy_if(busIds, std::back_inserter(unknown),
                         [this](int busId) { return !isKnown(busId); });
    return unknown;
}

/// No names ask for every property.
QVariantMap DBusMenu::itemProperties(int busId, const QStringList& names) const {
    QVariantMap all{{QStringLiteral("children-display"), QStringLiteral("submenu")}};
    if (busId != rootId)
        all = propertiesOf(entries_[static_cast<std::size_t>(busId - firstBusId_)]);
    if (!names.isEmpty())
        all.removeIf([&names](const auto& property) { return !names.contains(property.key()); });
    return all;
}

QVariantList DBusMenu::layout(const QVariantList& arguments) const {
    const int parent = arguments[0].toInt();
    const int depth = arguments[1].toInt();
    const QStringList names = arguments[2].toStringList();
    if (!isKnown(parent))
        refuseId();
    MenuLayoutItem item{.id = parent, .properties = itemProperties(parent, names), .children = {}};
    // A depth below zero is no limit; there is one level only.
    if (parent == rootId && depth != 0) {
        for (std::size_t index = 0; index < entries_.size(); ++index) {
            const int busId = busIdAt(index);
            item.children.append({busId, itemProperties(busId, names), {}});
        }
    }
    return {revision_, QVariant::fromValue(item)};
}

QVariantList DBusMenu::groupProperties(const QVariantList& arguments) const {
    const auto requested = qdbus_cast<QList<int>>(arguments[0]);
    const QStringList names = arguments[1].toStringList();
    MenuItemPropertiesList found;
    const auto addIfRequested = [&](int busId) {
        // No ids ask for every item. Each is answered once, however often it is asked for.
        if (requested.isEmpty() || requested.contains(busId))
            found.append({busId, itemProperties(busId, names)});
    };
    addIfRequested(rootId);
    for (std::size_t index = 0; index < entries_.size(); ++index)
        addIfRequested(busIdAt(index));
    return {QVariant::fromValue(found)};
}

QVariantList DBusMenu::property(const QVariantList& arguments) const {
    const int busId = arguments[0].toInt();
    if (!isKnown(busId))
        refuseId();
    const QVariantMap all = itemProperties(busId, {});
    const auto found = all.find(arguments[1].toString());
    if (found == all.end())
        throw DBusCallError(QDBusError::InvalidArgs, "The menu item has no such property");
    return {QVariant::fromValue(QDBusVariant(*found))};
}

QVariantList DBusMenu::answerEvent(const QVariantList& arguments) {
    const int busId = arguments[0].toInt();
    if (!isKnown(busId))
        refuseId();
    handleEvent(busId, arguments[1].toString());
    return {};
}

QVariantList DBusMenu::answerEventGroup(const QVariantList& arguments) {
    const auto events = qdbus_cast<MenuEventList>(arguments[0]);
    QList<int> unknown;
    for (const MenuEvent& event : events) {
        if (isKnown(event.id))
            handleEvent(event.id, event.name);
        else
            unknown.append(event.id);
    }
    if (!events.isEmpty() && unknown.size() == events.size())
        refuseId();
    return {QVariant::fromValue(unknown)};
}

void DBusMenu::handleEvent(int busId, const QString& name) {
    if (busId == rootId || name != QStringLiteral("clicked"))
        return;
    const MenuEntry& entry = entries_[static_cast<std::size_t>(busId - firstBusId_)];
    if (entry.isSeparator || !entry.isEnabled)
        return;
    // Whoever listens may open windows or end the item; the panel is answered before that.
    QMetaObject::invokeMethod(
        this, [this, id = entry.id] { Q_EMIT triggered(id); }, Qt::QueuedConnection);
}

QVariantList DBusMenu::aboutToShow(const QVariantList& arguments) const {
    if (!isKnown(arguments[0].toInt()))
        refuseId();
    return {false};
}

QVariantList DBusMenu::aboutToShowGroup(const QVariantList& arguments) const {
    const auto requested = qdbus_cast<QList<int>>(arguments[0]);
    const QList<int> unknown = unknownAmong(requested);
    if (!requested.isEmpty() && unknown.size() == requested.size())
        refuseId();
    return {QVariant::fromValue(QList<int>()), QVariant::fromValue(unknown)};
}

} // namespace platform
