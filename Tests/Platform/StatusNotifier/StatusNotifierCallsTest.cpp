// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Platform/StatusBar/StatusItemFixture.h"

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
        const QDBusMessage reply = call(path, interface, member, arguments);
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
    EXPECT_EQ(callItem("XAyatanaSecondaryActivate", {12345U}), ""); // has no point
    test::drainEvents();
    EXPECT_EQ(points_.size(), 4U);
}

TEST_F(StatusNotifierCalls, AClickMayEndTheItem) {
    QObject::connect(item_.get(), &StatusItem::activated, &context_, [this] { item_.reset(); });
    EXPECT_EQ(callItem("Activate", {1, 1}), "");
    EXPECT_TRUE(QTest::qWaitFor([this] { return item_ == nullptr; }, 5'000));
}

TEST_F(StatusNotifierCalls, HostileOnesGetAnErrorReply) {
    const QString text = QStringLiteral("text");
    const QString clicked = QStringLiteral("clicked");
    const auto variant = QVariant::fromValue(QDBusVariant(1));
    const QString item = QString::fromLatin1(itemInterface);
    const QString menu = QString::fromLatin1(menuInterface);
    struct Hostile {
        const char* member = nullptr;
        QVariantList arguments;
        const char* error = nullptr;
    };
    const auto expectErrors = [this](const char* path, const char* interface,
                                     std::initializer_list<Hostile> calls) {
        for (const auto& [member, arguments, error] : calls)
            EXPECT_EQ(callObject(path, interface, member, arguments),
                      std::string("org.freedesktop.DBus.Error.") + error)
                << member;
    };
    expectErrors(itemPath, itemInterface,
                 {{"Activate", {}, "InvalidArgs"},
                  {"Activate", {text, text}, "InvalidArgs"},
                  {"Activate", {1, 2, 3}, "InvalidArgs"},
                  {"Explode", {}, "UnknownMethod"}});
    expectErrors(itemPath, propertiesInterface,
                 {{"Get", {item}, "InvalidArgs"},
                  {"Get", {item, 5}, "InvalidArgs"},
                  {"Get", {item, text}, "UnknownProperty"},
                  {"Get", {text, text}, "UnknownInterface"},
                  {"GetAll", {menu}, "UnknownInterface"},
                  {"Set", {item, text, variant}, "UnknownProperty"},
                  {"Set", {item, QStringLiteral("Title"), variant}, "PropertyReadOnly"},
                  {"Grab", {}, "UnknownMethod"}});
    expectErrors(menuPath, menuInterface,
                 {{"GetLayout", {0, -1}, "InvalidArgs"},
                  {"GetLayout", {99, -1, QStringList()}, "InvalidArgs"},
                  {"Event", {2147483647, clicked, variant, 0U}, "InvalidArgs"},
                  {"EventGroup", {QStringList()}, "InvalidArgs"},
                  {"GetProperty", {0, text}, "InvalidArgs"},
                  {"GetProperty", {-1, text}, "InvalidArgs"},
                  {"AboutToShow", {-2147483647 - 1}, "InvalidArgs"}});
    expectErrors(itemPath, "org.example.Other", {{"Activate", {1, 2}, "UnknownInterface"}});
    expectErrors(itemPath, menuInterface, {{"AboutToShow", {0}, "UnknownInterface"}});
    expectErrors(menuPath, itemInterface, {{"Activate", {1, 2}, "UnknownInterface"}});
    EXPECT_EQ(property("Id"), QStringLiteral("quorvel")) << "it answers still";
    test::drainEvents();
    EXPECT_THAT(points_, IsEmpty());
}

} // namespace
