// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Platform/StatusBar/StatusItemFixture.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QTest>

using namespace std::chrono_literals;
using namespace platform;

namespace {

const QString itemInterface = QStringLiteral("org.kde.StatusNotifierItem");

} // namespace

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

void StatusItemFixture::makeItem(StatusItemOptions options) {
    item_ = std::make_unique<StatusItem>(
        StatusItemIdentity{QStringLiteral("quorvel"), QStringLiteral("Quorvel"), icons_.path()},
        clock_, bus_.connect(), options);
    item_->setMenu({{10, QStringLiteral("Open")},
                    MenuEntry::separator(),
                    {11, QStringLiteral("under_score")}});
    item_->setImage(image(Qt::red));
    item_->setTitle(title(QStringLiteral("BTC 1.00")));
    item_->setToolTip(QStringLiteral("BTC 1.00"));
    clock_.advance(0ms);
}

void StatusItemFixture::showItem(StatusItemOptions options) {
    watcher_ = std::make_unique<test::FakeStatusNotifierWatcher>(panelBus_);
    makeItem(options);
    waitForRegistrations(1);
    panel_.listenTo(service_, itemInterface);
}

void StatusItemFixture::waitForRegistrations(qsizetype count) {
    ASSERT_TRUE(QTest::qWaitFor([&] { return watcher_->registered().size() >= count; }, 5'000));
    service_ = watcher_->registered().back();
}

QDBusMessage StatusItemFixture::call(const char* path, const char* interface, const char* member,
                                     const QVariantList& arguments) {
    return panel_.call(service_, QString::fromLatin1(path), QString::fromLatin1(interface),
                       QString::fromLatin1(member), arguments);
}

QVariant StatusItemFixture::property(const char* name) {
    const QDBusMessage reply = call("/StatusNotifierItem", "org.freedesktop.DBus.Properties", "Get",
                                    {itemInterface, QString::fromLatin1(name)});
    return reply.arguments().value(0).value<QDBusVariant>().variant();
}

QVariantMap StatusItemFixture::properties() {
    const QDBusMessage reply =
        call("/StatusNotifierItem", "org.freedesktop.DBus.Properties", "GetAll", {itemInterface});
    return qdbus_cast<QVariantMap>(reply.arguments().value(0));
}

std::vector<std::string> StatusItemFixture::takeSignals() {
    // What the item sent before this answer has arrived with it.
    EXPECT_TRUE(property("Id").isValid());
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
