#include "Platform/Desktop/StatusNotifierTypes.h"
#include "Tests/Platform/Desktop/StatusItemFixture.h"

#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDir>
#include <QTest>
#include <QXmlStreamReader>

#include <gmock/gmock.h>

#include <map>

using namespace std::chrono_literals;
using namespace platform;
using testing::ElementsAre;

namespace {

using Signatures = std::map<std::string, std::string>;

std::string signatureOf(const QVariant& value) {
    if (value.metaType() == QMetaType::fromType<QDBusArgument>())
        return value.value<QDBusArgument>().currentSignature().toStdString();
    return QDBusMetaType::typeToSignature(value.metaType());
}

Signatures signaturesOf(const QVariantMap& properties) {
    Signatures signatures;
    for (const auto [name, value] : properties.asKeyValueRange())
        signatures.emplace(name.toStdString(), signatureOf(value));
    return signatures;
}

/// The properties that a description of an object promises for an interface.
Signatures describedProperties(const QString& xml, const QString& interface) {
    Signatures signatures;
    bool isInside = false;
    for (QXmlStreamReader reader(xml); !reader.atEnd();) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const auto attributes = reader.attributes();
        const auto name = attributes.value(QStringLiteral("name"));
        if (reader.name() == QStringLiteral("interface"))
            isInside = name == interface;
        if (isInside && reader.name() == QStringLiteral("property"))
            signatures.emplace(name.toString().toStdString(),
                               attributes.value(QStringLiteral("type")).toString().toStdString());
    }
    return signatures;
}

class StatusNotifierItem : public StatusItemFixture {
protected:
    std::unique_ptr<test::FakeStatusNotifierWatcher> anotherWatcher() {
        return std::make_unique<test::FakeStatusNotifierWatcher>(bus_.connect());
    }

    QString iconPath() { return property(QStringLiteral("IconName")).toString(); }
};

TEST_F(StatusNotifierItem, RegistersByANameOfItsOwnThatItOwns) {
    showItem();
    EXPECT_TRUE(service_.startsWith(
        QStringLiteral("org.kde.StatusNotifierItem-%1-").arg(QCoreApplication::applicationPid())));
    EXPECT_EQ(property(QStringLiteral("Id")), QStringLiteral("quorvel"));
    item_.reset();
    EXPECT_EQ(call(QStringLiteral("/"), QStringLiteral("org.freedesktop.DBus.Peer"),
                   QStringLiteral("Ping"))
                  .type(),
              QDBusMessage::ErrorMessage);
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
    EXPECT_EQ(property(QStringLiteral("XAyatanaLabel")), QStringLiteral("BTC 1.00"));
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

TEST_F(StatusNotifierItem, HasThePropertiesThatHostsReadInTheirTypes) {
    showItem();
    const QVariantMap all = properties();
    const Signatures expected{{"Category", "s"},
                              {"Id", "s"},
                              {"Title", "s"},
                              {"Status", "s"},
                              {"WindowId", "i"},
                              {"IconThemePath", "s"},
                              {"IconName", "s"},
                              {"IconPixmap", "a(iiay)"},
                              {"IconAccessibleDesc", "s"},
                              {"OverlayIconName", "s"},
                              {"OverlayIconPixmap", "a(iiay)"},
                              {"AttentionIconName", "s"},
                              {"AttentionIconPixmap", "a(iiay)"},
                              {"AttentionAccessibleDesc", "s"},
                              {"AttentionMovieName", "s"},
                              {"ToolTip", "(sa(iiay)ss)"},
                              {"ItemIsMenu", "b"},
                              {"Menu", "o"},
                              {"XAyatanaLabel", "s"},
                              {"XAyatanaLabelGuide", "s"},
                              {"XAyatanaOrderingIndex", "u"}};
    EXPECT_EQ(signaturesOf(all), expected);
    for (const auto& [name, signature] : expected)
        EXPECT_EQ(signatureOf(property(QString::fromStdString(name))), signature) << name;

    const QDBusMessage description =
        call(QStringLiteral("/StatusNotifierItem"),
             QStringLiteral("org.freedesktop.DBus.Introspectable"), QStringLiteral("Introspect"));
    EXPECT_EQ(describedProperties(description.arguments().value(0).toString(),
                                  QStringLiteral("org.kde.StatusNotifierItem")),
              expected);
}

TEST_F(StatusNotifierItem, SaysWhatItIs) {
    showItem();
    const QVariantMap all = properties();
    EXPECT_EQ(all[QStringLiteral("Category")], QStringLiteral("ApplicationStatus"));
    EXPECT_EQ(all[QStringLiteral("Title")], QStringLiteral("Quorvel"));
    EXPECT_EQ(all[QStringLiteral("IconAccessibleDesc")], QStringLiteral("Quorvel"));
    EXPECT_EQ(all[QStringLiteral("Status")], QStringLiteral("Active"));
    EXPECT_EQ(all[QStringLiteral("ItemIsMenu")], false);
    EXPECT_EQ(all[QStringLiteral("Menu")].value<QDBusObjectPath>().path(),
              QStringLiteral("/MenuBar"));
    EXPECT_EQ(qdbus_cast<NotifierToolTip>(all[QStringLiteral("ToolTip")]),
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

    const auto pixmaps = qdbus_cast<IconPixmapList>(property(QStringLiteral("IconPixmap")));
    ASSERT_EQ(pixmaps.size(), 2);
    for (qsizetype index = 0; index < 2; ++index) {
        const int size = index == 0 ? 22 : 44;
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
    EXPECT_EQ(property(QStringLiteral("IconName")).toString(), QString());
    EXPECT_EQ(qdbus_cast<IconPixmapList>(property(QStringLiteral("IconPixmap"))).size(), 2);
}

TEST_F(StatusNotifierItem, HasNoLabelPropertyWhileThereIsNoTitle) {
    showItem();
    item_->setTitle({}, Urgency::immediate);
    clock_.advance(0ms);
    EXPECT_FALSE(properties().contains(QStringLiteral("XAyatanaLabel")));
    EXPECT_FALSE(properties().contains(QStringLiteral("XAyatanaLabelGuide")));
    EXPECT_FALSE(property(QStringLiteral("XAyatanaLabel")).isValid());

    item_->setTitle(title(QStringLiteral("ETH 2,345.67 +8.90% \u25B2")), Urgency::immediate);
    clock_.advance(0ms);
    EXPECT_EQ(property(QStringLiteral("XAyatanaLabel")).toString(),
              QStringLiteral("ETH 2,345.67 +8.90% \u25B2"));
    EXPECT_EQ(property(QStringLiteral("XAyatanaLabelGuide")).toString(),
              QStringLiteral("ETH 8,888.88 +8.88% \u25B2"));
}

} // namespace
