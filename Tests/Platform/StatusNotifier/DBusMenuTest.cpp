// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusNotifier/DBusMenuTypes.h"
#include "Tests/Platform/StatusBar/StatusItemFixture.h"

#include <QDBusVariant>

#include <gmock/gmock.h>

using namespace std::chrono_literals;
using namespace platform;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const auto label = QStringLiteral("label");
const auto enabled = QStringLiteral("enabled");
const auto clicked = QStringLiteral("clicked");
const QDBusVariant nothing(0);

/// Such as "enabled=false label=Open".
std::string textOf(const QVariantMap& properties) {
    QStringList texts;
    for (const auto [name, value] : properties.asKeyValueRange())
        texts.append(name + QLatin1Char('=') + value.toString());
    return texts.join(QLatin1Char(' ')).toStdString();
}

class DBusMenu : public StatusItemFixture {
protected:
    void SetUp() override {
        showItem();
        QObject::connect(item_.get(), &StatusItem::menuTriggered, &context_,
                         [this](int id) { triggered_.push_back(id); });
        setMenu({{10, QStringLiteral("Open"), true, false},
                 MenuEntry::separator(),
                 {11, QStringLiteral("under_score"), false, false}});
        takeSignals();
        entries_ = layout().children;
        ASSERT_EQ(entries_.size(), 3);
    }

    void setMenu(std::vector<MenuEntry> entries) {
        item_->setMenu(std::move(entries));
        clock_.advance(0ms);
    }

    QVariantList callMenu(const char* member, const QVariantList& arguments) {
        return call("/MenuBar", "com.canonical.dbusmenu", member, arguments).arguments();
    }

    MenuLayoutItem layout(int parent = 0, int depth = -1, const QStringList& names = {}) {
        const QVariantList reply = callMenu("GetLayout", {parent, depth, names});
        revision_ = reply.value(0).toUInt();
        return qdbus_cast<MenuLayoutItem>(reply.value(1));
    }

    void sendEvent(int busId, const QString& name) {
        callMenu("Event", {busId, name, QVariant::fromValue(nothing), 0U});
        test::drainEvents();
    }

    /// The only thing that the menu announced since the last time.
    QDBusMessage announcement() {
        layout();
        const auto heard = panel_.takeSignals();
        EXPECT_EQ(heard.size(), 1);
        return heard.value(0);
    }

    QObject context_;
    QList<MenuLayoutItem> entries_;
    std::vector<int> triggered_;
    uint revision_ = 0;
};

TEST_F(DBusMenu, LaysItsEntriesOut) {
    EXPECT_EQ(layout().id, 0);
    EXPECT_EQ(textOf(layout().properties), "children-display=submenu");
    EXPECT_EQ(textOf(entries_[0].properties), "label=Open");
    EXPECT_EQ(textOf(entries_[1].properties), "type=separator");
    EXPECT_EQ(textOf(entries_[2].properties), "enabled=false label=under__score");
}

TEST_F(DBusMenu, LimitsALayoutToTheDepthParentAndPropertiesAskedFor) {
    EXPECT_THAT(layout(0, 0).children, IsEmpty());
    EXPECT_EQ(layout(0, 1).children.size(), 3);
    const int last = entries_[2].id;
    EXPECT_EQ(layout(last).properties.size(), 2);
    EXPECT_EQ(textOf(layout(last, -1, {enabled}).properties), "enabled=false");
}

TEST_F(DBusMenu, GivesPropertiesOfOneOrManyItems) {
    const int first = entries_[0].id;
    const QVariantList one = callMenu("GetProperty", {first, label});
    EXPECT_EQ(one.value(0).value<QDBusVariant>().variant(), QStringLiteral("Open"));

    const auto ask = [this](const QList<int>& ids) {
        return qdbus_cast<MenuItemPropertiesList>(
            callMenu("GetGroupProperties", {QVariant::fromValue(ids), QStringList{label}})
                .value(0));
    };
    const auto some = ask({first, first, 4711});
    ASSERT_EQ(some.size(), 1);
    EXPECT_EQ(some[0].id, first);
    EXPECT_EQ(textOf(some[0].properties), "label=Open");
    EXPECT_EQ(ask({}).size(), 4);
}

TEST_F(DBusMenu, HasTheInterfacesProperties) {
    const QDBusMessage reply = call("/MenuBar", "org.freedesktop.DBus.Properties", "GetAll",
                                    {QStringLiteral("com.canonical.dbusmenu")});
    EXPECT_EQ(qdbus_cast<QVariantMap>(reply.arguments().value(0)),
              (QVariantMap{{QStringLiteral("Version"), 3U},
                           {QStringLiteral("Status"), QStringLiteral("normal")},
                           {QStringLiteral("TextDirection"), QStringLiteral("ltr")},
                           {QStringLiteral("IconThemePath"), QStringList()}}));
}

TEST_F(DBusMenu, ReportsOnlyClicksOnEnabledEntries) {
    sendEvent(0, QStringLiteral("opened"));
    sendEvent(entries_[0].id, QStringLiteral("hovered"));
    sendEvent(entries_[1].id, clicked);
    sendEvent(entries_[2].id, clicked);
    EXPECT_THAT(triggered_, IsEmpty());
    sendEvent(entries_[0].id, clicked);
    EXPECT_THAT(triggered_, ElementsAre(10));
}

TEST_F(DBusMenu, TakesEventsAndAnnouncementsInGroups) {
    const MenuEventList events{{4711, clicked, nothing, 0}, {entries_[0].id, clicked, nothing, 0}};
    const QVariantList reply = callMenu("EventGroup", {QVariant::fromValue(events)});
    test::drainEvents();
    EXPECT_EQ(qdbus_cast<QList<int>>(reply.value(0)), (QList<int>{4711}));
    EXPECT_THAT(triggered_, ElementsAre(10));

    EXPECT_EQ(callMenu("AboutToShow", {0}), (QVariantList{false}));
    const QVariantList group =
        callMenu("AboutToShowGroup", {QVariant::fromValue(QList<int>{0, 4711})});
    EXPECT_THAT(qdbus_cast<QList<int>>(group.value(0)), IsEmpty());
    EXPECT_EQ(qdbus_cast<QList<int>>(group.value(1)), (QList<int>{4711}));
}

TEST_F(DBusMenu, AnnouncesANewLayoutAndRefusesClicksIntoTheOldOne) {
    const uint oldRevision = revision_;
    setMenu({{12, QStringLiteral("Quit"), true, false}});
    const QDBusMessage heard = announcement();
    EXPECT_EQ(heard.member(), QStringLiteral("LayoutUpdated"));
    EXPECT_GT(revision_, oldRevision);
    EXPECT_EQ(heard.arguments(), (QVariantList{revision_, 0}));
    sendEvent(entries_[0].id, clicked);
    EXPECT_THAT(triggered_, IsEmpty());
    sendEvent(layout().children[0].id, clicked);
    EXPECT_THAT(triggered_, ElementsAre(12));
}

TEST_F(DBusMenu, AnnouncesOnlyThePropertiesThatChangedInTheSameLayout) {
    setMenu({{10, QStringLiteral("Close"), false, false},
             MenuEntry::separator(),
             {11, QStringLiteral("under_score"), true, false}});
    const QDBusMessage heard = announcement();
    EXPECT_EQ(heard.member(), QStringLiteral("ItemsPropertiesUpdated"));
    const auto updated = qdbus_cast<MenuItemPropertiesList>(heard.arguments().value(0));
    ASSERT_EQ(updated.size(), 1);
    EXPECT_EQ(updated[0].id, entries_[0].id);
    EXPECT_EQ(textOf(updated[0].properties), "enabled=false label=Close");
    const auto removed = qdbus_cast<MenuItemRemovedPropertiesList>(heard.arguments().value(1));
    ASSERT_EQ(removed.size(), 1);
    EXPECT_EQ(removed[0].id, entries_[2].id);
    EXPECT_EQ(removed[0].names, QStringList{enabled});
}

} // namespace
