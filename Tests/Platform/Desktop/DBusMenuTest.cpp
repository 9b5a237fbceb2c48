#include "Platform/Desktop/DBusMenuTypes.h"
#include "Tests/Platform/Desktop/StatusItemFixture.h"

#include <QDBusVariant>

#include <gmock/gmock.h>

using namespace std::chrono_literals;
using namespace platform;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const auto label = QStringLiteral("label");
const auto enabled = QStringLiteral("enabled");

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
    }

    void setMenu(std::vector<MenuEntry> entries) {
        item_->setMenu(std::move(entries));
        clock_.advance(0ms);
    }

    QVariantList callMenu(const char* member, const QVariantList& arguments) {
        return call(QStringLiteral("/MenuBar"), QStringLiteral("com.canonical.dbusmenu"),
                    QString::fromLatin1(member), arguments)
            .arguments();
    }

    MenuLayoutItem layout(int parent = 0, int depth = -1, const QStringList& names = {}) {
        const QVariantList reply = callMenu("GetLayout", {parent, depth, names});
        revision_ = reply.value(0).toUInt();
        return qdbus_cast<MenuLayoutItem>(reply.value(1));
    }

    void sendEvent(int busId, const char* name) {
        callMenu("Event",
                 {busId, QString::fromLatin1(name), QVariant::fromValue(QDBusVariant(0)), 0U});
        test::drainEvents();
    }

    /// What the menu announced since the last time.
    QList<QDBusMessage> announcements() {
        layout();
        return panel_.takeSignals();
    }

    QObject context_;
    std::vector<int> triggered_;
    uint revision_ = 0;
};

TEST_F(DBusMenu, LaysItsEntriesOut) {
    const MenuLayoutItem root = layout();
    EXPECT_EQ(root.id, 0);
    EXPECT_EQ(root.properties,
              (QVariantMap{{QStringLiteral("children-display"), QStringLiteral("submenu")}}));
    ASSERT_EQ(root.children.size(), 3);
    EXPECT_EQ(root.children[0].properties, (QVariantMap{{label, QStringLiteral("Open")}}));
    EXPECT_EQ(root.children[1].properties,
              (QVariantMap{{QStringLiteral("type"), QStringLiteral("separator")}}));
    EXPECT_EQ(root.children[2].properties,
              (QVariantMap{{label, QStringLiteral("under__score")}, {enabled, false}}));
}

TEST_F(DBusMenu, LimitsALayoutToTheDepthParentAndPropertiesAskedFor) {
    EXPECT_THAT(layout(0, 0).children, IsEmpty());
    EXPECT_EQ(layout(0, 1).children.size(), 3);
    const int last = layout().children[2].id;
    EXPECT_EQ(layout(last).properties.size(), 2);
    EXPECT_EQ(layout(last, -1, {enabled}).properties, (QVariantMap{{enabled, false}}));
}

TEST_F(DBusMenu, GivesPropertiesOfOneOrManyItems) {
    const int first = layout().children[0].id;
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
    EXPECT_EQ(some[0].properties, (QVariantMap{{label, QStringLiteral("Open")}}));
    EXPECT_EQ(ask({}).size(), 4);
}

TEST_F(DBusMenu, HasTheInterfacesProperties) {
    const QDBusMessage reply =
        call(QStringLiteral("/MenuBar"), QStringLiteral("org.freedesktop.DBus.Properties"),
             QStringLiteral("GetAll"), {QStringLiteral("com.canonical.dbusmenu")});
    EXPECT_EQ(qdbus_cast<QVariantMap>(reply.arguments().value(0)),
              (QVariantMap{{QStringLiteral("Version"), 3U},
                           {QStringLiteral("Status"), QStringLiteral("normal")},
                           {QStringLiteral("TextDirection"), QStringLiteral("ltr")},
                           {QStringLiteral("IconThemePath"), QStringList()}}));
}

TEST_F(DBusMenu, ReportsOnlyClicksOnEnabledEntries) {
    const auto entries = layout().children;
    sendEvent(0, "opened");
    sendEvent(entries[0].id, "hovered");
    sendEvent(entries[1].id, "clicked");
    sendEvent(entries[2].id, "clicked");
    EXPECT_THAT(triggered_, IsEmpty());
    sendEvent(entries[0].id, "clicked");
    EXPECT_THAT(triggered_, ElementsAre(10));
}

TEST_F(DBusMenu, TakesEventsAndAnnouncementsInGroups) {
    const int first = layout().children[0].id;
    const QDBusVariant nothing(0);
    const MenuEventList events{{4711, QStringLiteral("clicked"), nothing, 0},
                               {first, QStringLiteral("clicked"), nothing, 0}};
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
    const int oldFirst = layout().children[0].id;
    const uint oldRevision = revision_;
    setMenu({{12, QStringLiteral("Quit"), true, false}});
    const auto heard = announcements();
    ASSERT_EQ(heard.size(), 1);
    EXPECT_EQ(heard[0].member(), QStringLiteral("LayoutUpdated"));
    EXPECT_GT(revision_, oldRevision);
    EXPECT_EQ(heard[0].arguments(), (QVariantList{revision_, 0}));
    sendEvent(oldFirst, "clicked");
    EXPECT_THAT(triggered_, IsEmpty());
    sendEvent(layout().children[0].id, "clicked");
    EXPECT_THAT(triggered_, ElementsAre(12));
}

TEST_F(DBusMenu, AnnouncesOnlyThePropertiesThatChangedInTheSameLayout) {
    const auto entries = layout().children;
    setMenu({{10, QString::fromUtf8("Öffnen"), false, false},
             MenuEntry::separator(),
             {11, QStringLiteral("under_score"), true, false}});
    const auto heard = announcements();
    ASSERT_EQ(heard.size(), 1);
    EXPECT_EQ(heard[0].member(), QStringLiteral("ItemsPropertiesUpdated"));
    const auto updated = qdbus_cast<MenuItemPropertiesList>(heard[0].arguments().value(0));
    ASSERT_EQ(updated.size(), 1);
    EXPECT_EQ(updated[0].id, entries[0].id);
    EXPECT_EQ(updated[0].properties,
              (QVariantMap{{label, QString::fromUtf8("Öffnen")}, {enabled, false}}));
    const auto removed = qdbus_cast<MenuItemRemovedPropertiesList>(heard[0].arguments().value(1));
    ASSERT_EQ(removed.size(), 1);
    EXPECT_EQ(removed[0].id, entries[2].id);
    EXPECT_EQ(removed[0].names, QStringList{enabled});
}

} // namespace
