// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusNotifier/DBusMenu.h"

#include "Platform/StatusNotifier/DBusMenuTypes.h"

#include <QDBusVariant>
#include <QGuiApplication>

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
  </interface>
)xml");

constexpr int rootId = 0;

/// Something that happened to a menu item in the panel, `(isvu)`.
struct MenuEvent {
    int id = 0;
    QString name;
};

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuEvent& event) {
    QDBusVariant data;
    uint timestamp = 0;
    argument.beginStructure();
    argument >> event.id >> event.name >> data >> timestamp;
    argument.endStructure();
    return argument;
}

} // namespace

DBusMenu::DBusMenu(std::vector<MenuEntry> entries, StatusItemEvents& events)
    : DBusObject(interfaceName, interfaceDescription, nullptr),
      entries_(std::move(entries)),
      events_(events) {
    registerDBusMenuTypes();
    addMethods();
}

void DBusMenu::addMethods() {
    using Arguments = const QVariantList&;
    const auto add = [this](const char* name, const char* signature, Method method) {
        addMethod(QString::fromLatin1(name), QString::fromLatin1(signature), std::move(method));
    };
    add("GetLayout", "iias", [this](Arguments arguments) {
        return layout(arguments[0].toInt(), arguments[1].toInt(), arguments[2].toStringList());
    });
    add("GetGroupProperties", "aias", [this](Arguments arguments) {
        return groupProperties(qdbus_cast<QList<int>>(arguments[0]), arguments[1].toStringList());
    });
    add("Event", "isvu", [this](Arguments arguments) {
        requireKnown(arguments[0].toInt());
        takeEvent(arguments[0].toInt(), arguments[1].toString());
        return QVariantList();
    });
    add("EventGroup", "a(isvu)", [this](Arguments arguments) {
        QList<int> unknown;
        for (const auto& [id, name] : qdbus_cast<QList<MenuEvent>>(arguments[0])) {
            if (!takeEvent(id, name))
                unknown.append(id);
        }
        return QVariantList{QVariant::fromValue(unknown)};
    });
    add("AboutToShow", "i", [this](Arguments arguments) {
        requireKnown(arguments[0].toInt());
        return QVariantList{false};
    });
    add("AboutToShowGroup", "ai", [this](Arguments arguments) {
        auto unknown = qdbus_cast<QList<int>>(arguments[0]);
        unknown.removeIf([this](int id) { return isKnown(id); });
        return QVariantList{QVariant::fromValue(QList<int>()), QVariant::fromValue(unknown)};
    });
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

void DBusMenu::requireKnown(int id) const {
    if (!isKnown(id))
        throw DBusCallError(QDBusError::InvalidArgs, "No such menu item");
}

/// What differs from a panel's defaults: enabled, visible, an ordinary item. No names ask for every
/// property.
QVariantMap DBusMenu::itemProperties(int id, const QStringList& names) const {
    QVariantMap all;
    if (id == rootId) {
        all.insert(QStringLiteral("children-display"), QStringLiteral("submenu"));
    } else if (const auto& entry = entries_[static_cast<std::size_t>(id - 1)]; entry.isSeparator) {
        all.insert(QStringLiteral("type"), QStringLiteral("separator"));
    } else {
        // An underscore would mark the next letter as access key; two of them are drawn as one.
        all.insert(QStringLiteral("label"),
                   QString(entry.text).replace(QLatin1Char('_'), QStringLiteral("__")));
    }
    if (!names.isEmpty())
        all.removeIf([&names](const auto& property) { return !names.contains(property.key()); });
    return all;
}

QVariantList DBusMenu::layout(int parent, int depth, const QStringList& names) const {
    requireKnown(parent);
    MenuLayoutItem item{.id = parent, .properties = itemProperties(parent, names), .children = {}};
    // A depth below zero is no limit; there is one level only.
    if (parent == rootId && depth != 0) {
        for (int id = 1; id <= count(); ++id)
            item.children.append({id, itemProperties(id, names), {}});
    }
    constexpr uint revision = 1;
    return {revision, QVariant::fromValue(item)};
}

QVariantList DBusMenu::groupProperties(const QList<int>& ids, const QStringList& names) const {
    QList<MenuItemProperties> found;
    for (int id = rootId; id <= count(); ++id) {
        // No ids ask for every item. Each is answered once, however often it is asked for.
        if (ids.isEmpty() || ids.contains(id))
            found.append({id, itemProperties(id, names)});
    }
    return {QVariant::fromValue(found)};
}

bool DBusMenu::takeEvent(int id, const QString& name) {
    if (!isKnown(id))
        return false;
    if (id == rootId || name != QStringLiteral("clicked"))
        return true;
    const MenuEntry& entry = entries_[static_cast<std::size_t>(id - 1)];
    // Whoever listens may open windows or end the item; the panel is answered before that.
    if (!entry.isSeparator) {
        QMetaObject::invokeMethod(
            this, [this, chosen = entry.id] { Q_EMIT events_.menuTriggered(chosen); },
            Qt::QueuedConnection);
    }
    return true;
}

} // namespace platform
