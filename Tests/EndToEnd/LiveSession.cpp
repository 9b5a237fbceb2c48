// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/EndToEnd/LiveSession.h"

#include "Tests/Support/WaitUntil.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusVariant>

#include <algorithm>

namespace test {

namespace {

const QString itemPath = QStringLiteral("/StatusNotifierItem");
const QString itemInterface = QStringLiteral("org.kde.StatusNotifierItem");

} // namespace

LiveSession::LiveSession() {
    quorvel_.setExchange(simulator_.restURL(), simulator_.streamURL());
    quorvel_.writeWatchlist(
        R"([{"symbol":{"base":"BTC","quote":"USDT"},"isPinnedToStatusBar":true},)"
        R"({"symbol":{"base":"ETH","quote":"USDT"},"isPinnedToStatusBar":true},)"
        R"({"symbol":{"base":"SOL","quote":"USDT"},"isPinnedToStatusBar":false}])");
    push("BTCUSDT", "65432.10000000", "1.234");
    push("ETHUSDT", "0.00001234", "-0.500");
}

void LiveSession::start() {
    quorvel_.start();
    ASSERT_TRUE(waitUntil([this] { return isRegistered(); }));
}

void LiveSession::push(const char* symbol, const char* price, const char* change) const {
    simulator_.control("push", QByteArray(R"({"symbol":")") + symbol + R"(","price":")" + price +
                                   R"(","change":")" + change + "\"}");
}

QVariant LiveSession::property(const QString& name) {
    const QDBusMessage reply = panel_.call(quorvel_.itemService(), itemPath,
                                           QStringLiteral("org.freedesktop.DBus.Properties"),
                                           QStringLiteral("Get"), {itemInterface, name});
    if (reply.type() != QDBusMessage::ReplyMessage)
        return {};
    return reply.arguments().at(0).value<QDBusVariant>().variant();
}

std::optional<std::string> LiveSession::label() {
    const QVariant value = property(QStringLiteral("XAyatanaLabel"));
    return value.isValid() ? std::optional(value.toString().toStdString()) : std::nullopt;
}

std::string LiveSession::toolTip() {
    const auto argument = property(QStringLiteral("ToolTip")).value<QDBusArgument>();
    QString iconName;
    QString title;
    argument.beginStructure();
    argument >> iconName;
    argument.beginArray(); // the icon's pixmaps
    while (!argument.atEnd())
        argument.asVariant();
    argument.endArray();
    argument >> title;
    argument.endStructure();
    return title.toStdString();
}

bool LiveSession::showsLabel(const std::string& text, std::chrono::milliseconds limit) {
    const bool isShown = waitUntil([&] { return label() == text; }, limit);
    EXPECT_EQ(label(), text);
    return isShown;
}

bool LiveSession::showsPrices() {
    return waitUntil([this] { return label().value_or("").find('%') != std::string::npos; });
}

bool LiveSession::isRegistered() const {
    return watcher_ && watcher_->registered().contains(quorvel_.itemService());
}

qsizetype LiveSession::requestCount(QStringView path) const {
    return std::ranges::count_if(
        simulator_.details(QStringLiteral("request")),
        [&](const QJsonObject& request) { return request[u"target"].toString().startsWith(path); });
}

} // namespace test
