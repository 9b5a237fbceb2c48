// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusNotifier/StatusNotifierTypes.h"
#include "Tests/Platform/StatusBar/StatusItemFixture.h"
#include "Tests/Support/Cases.h"

#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDir>
#include <QTest>

#include <gmock/gmock.h>

using namespace std::chrono_literals;
using namespace platform;
using testing::ElementsAre;

namespace {

std::string signatureOf(const QVariant& value) {
    if (value.metaType() == QMetaType::fromType<QDBusArgument>())
        return value.value<QDBusArgument>().currentSignature().toStdString();
    return QDBusMetaType::typeToSignature(value.metaType());
}

class StatusNotifierItem : public StatusItemFixture {
protected:
    std::unique_ptr<test::FakeStatusNotifierWatcher> anotherWatcher() {
        return std::make_unique<test::FakeStatusNotifierWatcher>(bus_.connect());
    }

    QString iconPath() { return property("IconName").toString(); }
};

TEST_F(StatusNotifierItem, RegistersByANameOfItsOwnThatItOwns) {
    showItem();
    EXPECT_TRUE(service_.startsWith(
        QStringLiteral("org.kde.StatusNotifierItem-%1-").arg(QCoreApplication::applicationPid())));
    EXPECT_EQ(property("Id"), QStringLiteral("quorvel"));
    item_.reset();
    EXPECT_EQ(call("/", "org.freedesktop.DBus.Peer", "Ping").type(), QDBusMessage::ErrorMessage);
}

TEST_F(StatusNotifierItem, RegistersWhenTheWatcherComesLateComesBackOrIsReplaced) {
    makeItem();
    clock_.advance(5s);
    watcher_ = anotherWatcher();
    waitForRegistrations(1);

    watcher_.reset();
    watcher_ = anotherWatcher();
    waitForRegistrations(1);

    const auto replaced = std::move(watcher_);
    watcher_ = anotherWatcher();
    waitForRegistrations(1);
    EXPECT_EQ(property("XAyatanaLabel"), QStringLiteral("BTC 1.00"));
    EXPECT_EQ(watcher_->registered().size(), 1);
}

TEST_F(StatusNotifierItem, WaitsForAPanelThatIsAboutToListenButNotForever) {
    constexpr bool hasHost = false;
    watcher_ = std::make_unique<test::FakeStatusNotifierWatcher>(panelBus_, hasHost);
    makeItem();
    EXPECT_FALSE(QTest::qWaitFor([&] { return !watcher_->registered().empty(); }, 300));
    watcher_->addHost();
    waitForRegistrations(1);
    watcher_->addHost();

    watcher_.reset();
    watcher_ = std::make_unique<test::FakeStatusNotifierWatcher>(bus_.connect(), hasHost);
    waitForRegistrations(1);
    EXPECT_EQ(watcher_->registered().size(), 1);
}

TEST_F(StatusNotifierItem, AnswersAWatcherThatReadsItBeforeAnsweringTheRegistration) {
    watcher_ = std::make_unique<test::FakeStatusNotifierWatcher>(panelBus_);
    watcher_->setReadsBeforeAnswering();
    makeItem();
    EXPECT_TRUE(QTest::qWaitFor([&] { return watcher_->answerCount() == 1; }, 5'000));
}

TEST_F(StatusNotifierItem, DoesNothingWithoutABusAndOutlivesIt) {
    StatusItem alone({QStringLiteral("quorvel"), QStringLiteral("Quorvel"), icons_.path()}, clock_,
                     QDBusConnection(QStringLiteral("no such connection")));
    alone.setTitle(title(QStringLiteral("BTC 1.00")));
    showItem();
    bus_.stop();
    for (const auto* text : {"BTC 2.00", "BTC 3.00"}) {
        item_->setTitle(title(QString::fromLatin1(text)));
        item_->setMenu({{1, QString::fromLatin1(text), true, false}});
        alone.setTitle(title(QString::fromLatin1(text)));
        clock_.advance(1s);
    }
    EXPECT_EQ(watcher_->registered().size(), 1);
}

TEST_F(StatusNotifierItem, HasThePropertiesThatHostsReadInTheirTypesAndDescribesThem) {
    showItem();
    const QVariantMap all = properties();
    const QString description =
        call("/StatusNotifierItem", "org.freedesktop.DBus.Introspectable", "Introspect")
            .arguments()
            .value(0)
            .toString();
    const auto expected = test::cases(
        std::pair("Category", "s"), std::pair("Id", "s"), std::pair("Title", "s"),
        std::pair("Status", "s"), std::pair("WindowId", "i"), std::pair("IconThemePath", "s"),
        std::pair("IconName", "s"), std::pair("IconPixmap", "a(iiay)"),
        std::pair("IconAccessibleDesc", "s"), std::pair("OverlayIconName", "s"),
        std::pair("OverlayIconPixmap", "a(iiay)"), std::pair("AttentionIconName", "s"),
        std::pair("AttentionIconPixmap", "a(iiay)"), std::pair("AttentionAccessibleDesc", "s"),
        std::pair("AttentionMovieName", "s"), std::pair("ToolTip", "(sa(iiay)ss)"),
        std::pair("ItemIsMenu", "b"), std::pair("Menu", "o"), std::pair("XAyatanaLabel", "s"),
        std::pair("XAyatanaLabelGuide", "s"), std::pair("XAyatanaOrderingIndex", "u"));
    EXPECT_EQ(all.size(), expected.size());
    EXPECT_EQ(description.count(QStringLiteral("<property ")), expected.size());
    for (const auto& [name, signature] : expected) {
        EXPECT_EQ(signatureOf(all[QString::fromLatin1(name)]), signature) << name;
        EXPECT_EQ(signatureOf(property(name)), signature) << name;
        EXPECT_TRUE(description.contains(QStringLiteral("<property name=\"%1\" type=\"%2\"")
                                             .arg(QLatin1String(name), QLatin1String(signature))))
            << name;
    }
    EXPECT_EQ(property("Category"), QStringLiteral("ApplicationStatus"));
    EXPECT_EQ(property("Title"), QStringLiteral("Quorvel"));
    EXPECT_EQ(property("IconAccessibleDesc"), QStringLiteral("Quorvel"));
    EXPECT_EQ(property("Status"), QStringLiteral("Active"));
    EXPECT_EQ(property("ItemIsMenu"), false);
    EXPECT_EQ(property("Menu").value<QDBusObjectPath>().path(), QStringLiteral("/MenuBar"));
    EXPECT_EQ(qdbus_cast<NotifierToolTip>(property("ToolTip")),
              (NotifierToolTip{{}, {}, QStringLiteral("BTC 1.00"), {}}));
}

TEST_F(StatusNotifierItem, SendsPixmapsOfTwoSizesInNetworkOrder) {
    showItem();
    StatusItemImage image;
    for (const int size : {22, 44}) {
        QImage rendering(size, size, QImage::Format_ARGB32);
        rendering.fill(QColor(1, 2, 3, 255));
        rendering.setPixelColor(size - 1, 0, QColor(200, 100, 50, 128));
        image.renderings.push_back(rendering.convertToFormat(QImage::Format_RGBA8888));
    }
    item_->setImage(image);
    clock_.advance(0ms);

    const auto pixmaps = qdbus_cast<IconPixmapList>(property("IconPixmap"));
    ASSERT_EQ(pixmaps.size(), 2);
    for (qsizetype index = 0; index < 2; ++index) {
        const qsizetype size = index == 0 ? 22 : 44;
        const IconPixmap& pixmap = pixmaps[index];
        EXPECT_EQ(pixmap.width, size);
        EXPECT_EQ(pixmap.height, size);
        ASSERT_EQ(pixmap.bytes.size(), size * size * 4);
        EXPECT_EQ(pixmap.bytes.first(4), QByteArray("\xff\x01\x02\x03"));
        EXPECT_EQ(pixmap.bytes.mid((size - 1) * 4, 4), QByteArray("\x80\xc8\x64\x32"));
    }
}

TEST_F(StatusNotifierItem, GivesAnIconFileOfItsOwnToEachImage) {
    showItem();
    const QString red = iconPath();
    EXPECT_TRUE(QDir::isAbsolutePath(red));
    EXPECT_EQ(QImage(red).pixelColor(10, 10), QColor(Qt::red));

    item_->setImage(image(Qt::red, false));
    clock_.advance(0ms);
    const QString hidden = iconPath();
    EXPECT_NE(hidden, red);
    EXPECT_EQ(QImage(hidden).size(), QImage(red).size());
    EXPECT_EQ(QImage(hidden).pixelColor(10, 10).alpha(), 0);

    item_->setImage(image(Qt::red));
    clock_.advance(0ms);
    EXPECT_EQ(iconPath(), red);
    EXPECT_EQ(QDir(icons_.path()).entryList(QDir::Files).size(), 2);
}

TEST_F(StatusNotifierItem, WritesAVanishedIconFileAgainForTheNextPanel) {
    showItem();
    ASSERT_TRUE(QFile::remove(iconPath()));
    watcher_.reset();
    watcher_ = anotherWatcher();
    waitForRegistrations(1);
    EXPECT_EQ(QImage(iconPath()).pixelColor(10, 10), QColor(Qt::red));
}

TEST_F(StatusNotifierItem, DoesWithoutAnIconFileWhereItCannotWriteOne) {
    QFile blocker(icons_.filePath(QStringLiteral("blocker")));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    watcher_ = std::make_unique<test::FakeStatusNotifierWatcher>(panelBus_);
    item_ = std::make_unique<StatusItem>(
        StatusItemIdentity{QStringLiteral("quorvel"), QStringLiteral("Quorvel"),
                           blocker.fileName() + QStringLiteral("/icons")},
        clock_, bus_.connect());
    item_->setImage(image(Qt::red));
    clock_.advance(0ms);
    waitForRegistrations(1);
    EXPECT_EQ(property("IconName").toString(), QString());
    EXPECT_EQ(qdbus_cast<IconPixmapList>(property("IconPixmap")).size(), 2);
}

TEST_F(StatusNotifierItem, HasNoLabelPropertyWhileThereIsNoTitle) {
    showItem();
    item_->setTitle({}, Urgency::immediate);
    clock_.advance(0ms);
    EXPECT_FALSE(properties().contains(QStringLiteral("XAyatanaLabel")));
    EXPECT_FALSE(properties().contains(QStringLiteral("XAyatanaLabelGuide")));
    EXPECT_FALSE(property("XAyatanaLabel").isValid());

    item_->setTitle(title(QStringLiteral("ETH 2,345.67 +8.90% \u25B2")), Urgency::immediate);
    clock_.advance(0ms);
    EXPECT_EQ(property("XAyatanaLabel").toString(), QStringLiteral("ETH 2,345.67 +8.90% \u25B2"));
    EXPECT_EQ(property("XAyatanaLabelGuide").toString(),
              QStringLiteral("ETH 8,888.88 +8.88% \u25B2"));
}

} // namespace
