#include "Tests/Platform/Desktop/StatusItemFixture.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QTest>

using namespace std::chrono_literals;
using namespace platform;

AttributedTitle StatusItemFixture::title(const QString& text) {
    return {.runs = {{text, std::nullopt, 0}}};
}

StatusItemImage StatusItemFixture::image(Qt::GlobalColor color, bool isShown) {
    StatusItemImage made{.renderings = {}, .isShown = isShown};
    for (const int size : {22, 44}) {
        made.renderings.emplace_back(size, size, QImage::Format_ARGB32);
        made.renderings.back().fill(color);
    }
    return made;
}

void StatusItemFixture::makeItem() {
    item_ = std::make_unique<StatusItem>(
        StatusItemIdentity{QStringLiteral("quorvel"), QStringLiteral("Quorvel"), icons_.path()},
        clock_, bus_.connect());
    item_->setImage(image(Qt::red));
    item_->setTitle(title(QStringLiteral("BTC 1.00")));
    item_->setToolTip(QStringLiteral("BTC 1.00"));
    clock_.advance(0ms);
}

void StatusItemFixture::showItem() {
    watcher_ = std::make_unique<test::FakeStatusNotifierWatcher>(panelBus_);
    makeItem();
    waitForRegistrations(1);
    panel_.listenTo(service_, QStringLiteral("org.kde.StatusNotifierItem"));
    panel_.listenTo(service_, QStringLiteral("com.canonical.dbusmenu"));
}

void StatusItemFixture::waitForRegistrations(qsizetype count) {
    ASSERT_TRUE(QTest::qWaitFor([&] { return watcher_->registered().size() >= count; }, 5'000));
    service_ = watcher_->registered().back();
}

QDBusMessage StatusItemFixture::call(const QString& path, const QString& interface,
                                     const QString& member, const QVariantList& arguments) {
    return panel_.call(service_, path, interface, member, arguments);
}

QVariant StatusItemFixture::property(const QString& name) {
    const QDBusMessage reply = call(
        QStringLiteral("/StatusNotifierItem"), QStringLiteral("org.freedesktop.DBus.Properties"),
        QStringLiteral("Get"), {QStringLiteral("org.kde.StatusNotifierItem"), name});
    return reply.arguments().value(0).value<QDBusVariant>().variant();
}

QVariantMap StatusItemFixture::properties() {
    const QDBusMessage reply = call(
        QStringLiteral("/StatusNotifierItem"), QStringLiteral("org.freedesktop.DBus.Properties"),
        QStringLiteral("GetAll"), {QStringLiteral("org.kde.StatusNotifierItem")});
    return qdbus_cast<QVariantMap>(reply.arguments().value(0));
}

std::vector<std::string> StatusItemFixture::takeSignals() {
    // What the item sent before this answer has arrived with it.
    EXPECT_TRUE(property(QStringLiteral("Id")).isValid());
    std::vector<std::string> texts;
    for (const QDBusMessage& signal : panel_.takeSignals()) {
        QStringList arguments;
        for (const QVariant& argument : signal.arguments())
            arguments.append(argument.toString());
        texts.push_back(QStringLiteral("%1(%2)")
                            .arg(signal.member(), arguments.join(QStringLiteral(", ")))
                            .toStdString());
    }
    return texts;
}
