#include "Tests/Platform/Desktop/StatusItemFixture.h"

#include <QDBusVariant>
#include <QTest>

#include <gmock/gmock.h>

using namespace platform;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr auto itemPath = "/StatusNotifierItem";
constexpr auto itemInterface = "org.kde.StatusNotifierItem";
constexpr auto menuPath = "/MenuBar";
constexpr auto menuInterface = "com.canonical.dbusmenu";
constexpr auto propertiesInterface = "org.freedesktop.DBus.Properties";

class StatusNotifierCalls : public StatusItemFixture {
protected:
    void SetUp() override {
        showItem();
        QObject::connect(item_.get(), &StatusItem::activated, &context_,
                         [this](QPoint point) { points_.push_back(point); });
    }

    std::string callItem(const char* member, const QVariantList& arguments) {
        return callObject(itemPath, itemInterface, member, arguments);
    }

    /// The name of the error, or "" when the call went well.
    std::string callObject(const char* path, const char* interface, const char* member,
                           const QVariantList& arguments) {
        const QDBusMessage reply = call(QString::fromLatin1(path), QString::fromLatin1(interface),
                                        QString::fromLatin1(member), arguments);
        return reply.errorName().toStdString();
    }

    QObject context_;
    std::vector<QPoint> points_;
};

TEST_F(StatusNotifierCalls, BothClicksActivateAtTheirPointAndTheOthersDoNothing) {
    EXPECT_EQ(callItem("Activate", {640, 14}), "");
    EXPECT_EQ(callItem("SecondaryActivate", {-3, 1080}), "");
    EXPECT_EQ(callItem("ContextMenu", {1, 2}), "");
    EXPECT_EQ(callItem("Scroll", {120, QStringLiteral("vertical")}), "");
    EXPECT_EQ(callObject(itemPath, "", "Activate", {7, 8}), "");
    test::drainEvents();
    EXPECT_THAT(points_, ElementsAre(QPoint(640, 14), QPoint(-3, 1080), QPoint(7, 8)));
}

TEST_F(StatusNotifierCalls, AMiddleClickWithoutAPointActivatesToo) {
    EXPECT_EQ(callItem("XAyatanaSecondaryActivate", {12345U}), "");
    test::drainEvents();
    EXPECT_EQ(points_.size(), 1U);
}

TEST_F(StatusNotifierCalls, AClickMayEndTheItem) {
    QObject::connect(item_.get(), &StatusItem::activated, &context_, [this] { item_.reset(); });
    EXPECT_EQ(callItem("Activate", {1, 1}), "");
    EXPECT_TRUE(QTest::qWaitFor([this] { return item_ == nullptr; }, 5'000));
}

struct HostileCall {
    const char* path;
    const char* interface;
    const char* member;
    QVariantList arguments;
    std::string error;
};

class HostileCalls : public StatusNotifierCalls, public testing::WithParamInterface<HostileCall> {};

TEST_P(HostileCalls, GetAnErrorReply) {
    const HostileCall& hostile = GetParam();
    EXPECT_EQ(callObject(hostile.path, hostile.interface, hostile.member, hostile.arguments),
              "org.freedesktop.DBus.Error." + hostile.error);
    EXPECT_EQ(property(QStringLiteral("Id")), QStringLiteral("quorvel"));
    test::drainEvents();
    EXPECT_THAT(points_, IsEmpty());
}

const QString item = QString::fromLatin1(itemInterface);
const QString menu = QString::fromLatin1(menuInterface);
const QString text = QStringLiteral("text");
const auto variant = QVariant::fromValue(QDBusVariant(1));

INSTANTIATE_TEST_SUITE_P(
    StatusNotifierItem, HostileCalls,
    testing::Values(
        HostileCall{itemPath, itemInterface, "Activate", {}, "InvalidArgs"},
        HostileCall{itemPath, itemInterface, "Activate", {text, text}, "InvalidArgs"},
        HostileCall{itemPath, itemInterface, "Activate", {1U, 2U}, "InvalidArgs"},
        HostileCall{itemPath, itemInterface, "Activate", {1, 2, 3}, "InvalidArgs"},
        HostileCall{itemPath, itemInterface, "Scroll", {text, 1}, "InvalidArgs"},
        HostileCall{itemPath, itemInterface, "Explode", {}, "UnknownMethod"},
        HostileCall{itemPath, "org.example.Other", "Activate", {1, 2}, "UnknownInterface"},
        HostileCall{itemPath, menuInterface, "AboutToShow", {0}, "UnknownInterface"},
        HostileCall{itemPath, propertiesInterface, "Get", {item}, "InvalidArgs"},
        HostileCall{itemPath, propertiesInterface, "Get", {item, 5}, "InvalidArgs"},
        HostileCall{itemPath, propertiesInterface, "Get", {item, text}, "UnknownProperty"},
        HostileCall{itemPath, propertiesInterface, "Get", {text, text}, "UnknownInterface"},
        HostileCall{itemPath, propertiesInterface, "GetAll", {}, "InvalidArgs"},
        HostileCall{itemPath, propertiesInterface, "GetAll", {menu}, "UnknownInterface"},
        HostileCall{itemPath, propertiesInterface, "Set", {item, text}, "InvalidArgs"},
        HostileCall{itemPath, propertiesInterface, "Set", {item, text, variant}, "UnknownProperty"},
        HostileCall{itemPath,
                    propertiesInterface,
                    "Set",
                    {item, QStringLiteral("Title"), variant},
                    "PropertyReadOnly"},
        HostileCall{itemPath, propertiesInterface, "Grab", {}, "UnknownMethod"},
        HostileCall{menuPath, menuInterface, "GetLayout", {0, -1}, "InvalidArgs"},
        HostileCall{menuPath, menuInterface, "GetLayout", {99, -1, QStringList()}, "InvalidArgs"},
        HostileCall{menuPath,
                    menuInterface,
                    "GetGroupProperties",
                    {QStringList(), QStringList()},
                    "InvalidArgs"},
        HostileCall{menuPath, menuInterface, "GetProperty", {0, text}, "InvalidArgs"},
        HostileCall{menuPath, menuInterface, "GetProperty", {-1, text}, "InvalidArgs"},
        HostileCall{
            menuPath, menuInterface, "Event", {1, QStringLiteral("clicked")}, "InvalidArgs"},
        HostileCall{menuPath,
                    menuInterface,
                    "Event",
                    {2147483647, QStringLiteral("clicked"), variant, 0U},
                    "InvalidArgs"},
        HostileCall{menuPath, menuInterface, "EventGroup", {QStringList()}, "InvalidArgs"},
        HostileCall{menuPath, menuInterface, "AboutToShow", {-2147483647 - 1}, "InvalidArgs"},
        HostileCall{menuPath,
                    menuInterface,
                    "AboutToShowGroup",
                    {QVariant::fromValue(QList<int>{5, 6})},
                    "InvalidArgs"},
        HostileCall{menuPath, itemInterface, "Activate", {1, 2}, "UnknownInterface"}));

} // namespace
