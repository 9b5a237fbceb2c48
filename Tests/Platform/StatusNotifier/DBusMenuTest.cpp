// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusNotifier/DBusMenuTypes.h"
#include "Tests/Platform/StatusBar/StatusItemFixture.h"

#include <QDBusMetaType>
#include <QDBusVariant>

#include <gmock/gmock.h>

using namespace platform;
using testing::ElementsAre;
using testing::IsEmpty;

/// As panels send it, `(isvu)`.
struct SentEvent {
    int id = 0;
    QString name;
};
Q_DECLARE_METATYPE(SentEvent)

QDBusArgument& operator<<(QDBusArgument& argument, const SentEvent& event) {
    argument.beginStructure();
    argument << event.id << event.name << QDBusVariant(0) << 0U;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, SentEvent&) {
    return argument;
}

namespace {

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
        entries_ = layout().children;
        ASSERT_EQ(entries_.size(), 3);
    }

    QVariantList callMenu(const char* member, const QVariantList& arguments) {
        return call("/MenuBar", "com.canonical.dbusmenu", member, arguments).arguments();
    }

    MenuLayoutItem layout(int parent = 0, int depth = -1, const QStringList& names = {}) {
        return qdbus_cast<MenuLayoutItem>(callMenu("GetLayout", {parent, depth, names}).value(1));
    }

    void sendEvent(int id, const QString& name) {
        callMenu("Event", {id, name, QVariant::fromValue(nothing), 0U});
        test::drainEvents();
    }

    QObject context_;
    QList<MenuLayoutItem> entries_;
    std::vector<int> triggered_;
};

TEST_F(DBusMenu, LaysItsEntriesOutAsFarAsIsAskedFor) {
    EXPECT_EQ(textOf(layout().properties), "children-display=submenu");
    EXPECT_EQ(textOf(entries_[0].properties), "label=Open");
    EXPECT_EQ(textOf(entries_[1].properties), "type=separator");
    EXPECT_EQ(textOf(entries_[2].properties), "label=under__score");

    EXPECT_THAT(layout(0, 0).children, IsEmpty());
    const auto types = layout(0, 1, {QStringLiteral("type")}).children;
    ASSERT_EQ(types.size(), 3);
    EXPECT_EQ(textOf(types[0].properties), "");
    EXPECT_EQ(textOf(types[1].properties), "type=separator");
    EXPECT_EQ(textOf(layout(entries_[2].id).properties), "label=under__score");
}

TEST_F(DBusMenu, GivesThePropertiesOfManyItems) {
    const auto ask = [this](const QList<int>& ids) {
        const QVariantList reply =
            callMenu("GetGroupProperties", {QVariant::fromValue(ids), QStringList()});
        return qdbus_cast<QList<MenuItemProperties>>(reply.value(0));
    };
    const int last = entries_[2].id;
    const auto some = ask({last, last, 4711});
    ASSERT_EQ(some.size(), 1);
    EXPECT_EQ(some[0].first, last);
    EXPECT_EQ(textOf(some[0].second), "label=under__score");
    EXPECT_EQ(ask({}).size(), 4);
}

TEST_F(DBusMenu, ReportsOnlyClicksOnEntries) {
    sendEvent(0, QStringLiteral("opened"));
    sendEvent(0, clicked);
    sendEvent(entries_[0].id, QStringLiteral("hovered"));
    sendEvent(entries_[1].id, clicked);
    sendEvent(entries_[2].id + 1, clicked);
    EXPECT_THAT(triggered_, IsEmpty());
    sendEvent(entries_[0].id, clicked);
    sendEvent(entries_[2].id, clicked);
    EXPECT_THAT(triggered_, ElementsAre(10, 11));
}

TEST_F(DBusMenu, TakesEventsAndAnnouncementsInGroups) {
    qDBusRegisterMetaType<SentEvent>();
    qDBusRegisterMetaType<QList<SentEvent>>();
    const QList<SentEvent> events{{4711, clicked}, {entries_[0].id, clicked}, {-1, clicked}};
    const QVariantList reply = callMenu("EventGroup", {QVariant::fromValue(events)});
    test::drainEvents();
    EXPECT_EQ(qdbus_cast<QList<int>>(reply.value(0)), (QList<int>{4711, -1}));
    EXPECT_THAT(triggered_, ElementsAre(10));

    EXPECT_EQ(callMenu("AboutToShow", {0}), (QVariantList{false}));
    const QVariantList group =
        callMenu("AboutToShowGroup", {QVariant::fromValue(QList<int>{0, 4711})});
    EXPECT_THAT(qdbus_cast<QList<int>>(group.value(0)), IsEmpty());
    EXPECT_EQ(qdbus_cast<QList<int>>(group.value(1)), (QList<int>{4711}));
}

} // namespace
