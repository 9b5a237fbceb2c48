// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusNotifier/DBusMenu.h"

#include "Platform/StatusNotifier/DBusMenuTypes.h"

#include <QDBusVariant>
#include <QGuiApplication>

#include <utility>

namespace platform {

namespace {

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
    : DBusObject(QStringLiteral("com.canonical.dbusmenu"), nullptr),
      entries_(std::move(entries)),
      events_(events) {
    registerDBusMenuTypes();
    addMethods();
}

void DBusMenu::addMethods() {
    using Arguments = const QVariantList&;
    addMethod("GetLayout", "iias", "u(ia{sv}av)", [this](Arguments arguments) {
        return layout(arguments[0].toInt(), arguments[1].toInt(), arguments[2].toStringList());
    });
    addMethod("GetGroupProperties", "aias", "a(ia{sv})", [this](Arguments arguments) {
        return groupProperties(qdbus_cast<QList<int>>(arguments[0]), arguments[1].toStringList());
    });
    addMethod("GetProperty", "is", "v", [this](Arguments arguments) {
        requireKnown(arguments[0].toInt());
        const QVariantMap all = itemProperties(arguments[0].toInt(), {});
        const auto found = all.find(arguments[1].toString());
        if (found == all.end())
            throw DBusCallError(QDBusError::InvalidArgs, "The menu item has no such property");
        return QVariantList{QVariant::fromValue(QDBusVariant(*found))};
    });
    addMethod("Event", "isvu", "", [this](Arguments arguments) {
        requireKnown(arguments[0].toInt());
        takeEvent(arguments[0].toInt(), arguments[1].toString());
        return QVariantList();
    });
    addMethod("EventGroup", "a(isvu)", "ai", [this](Arguments arguments) {
        QList<int> unknown;
        for (const auto& [id, name] : qdbus_cast<QList<MenuEvent>>(arguments[0])) {
            if (!takeEvent(id, name))
                unknown.append(id);
        }
        return QVariantList{QVariant::fromValue(unknown)};
    });
    addMethod("AboutToShow", "i", "b", [this](Arguments arguments) {
        requireKnown(arguments[0].toInt());
        return QVariantList{false};
    });
    addMethod("AboutToShowGroup", "ai", "aiai", [this](Arguments arguments) {
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
