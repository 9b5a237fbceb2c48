// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/EndToEnd/NotificationDaemon.h"

#include "Tests/Support/WaitUntil.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusVariant>
#include <QFile>

#include <map>
#include <stdexcept>

namespace test {

namespace {

const QString service = QStringLiteral("org.freedesktop.Notifications");

// Nothing leaves the screen before the test asks, nor covers what is at its top.
constexpr char settings[] =
    "[global]\norigin = bottom-left\nnotification_limit = 20\nidle_threshold = 0\n"
    "stack_duplicates = false\nsort = false\n"
    "[urgency_normal]\ntimeout = 0\n";

} // namespace

NotificationDaemon::NotificationDaemon(const QDBusConnection& bus) : peer_(bus) {
    QFile file(directory_.filePath(QStringLiteral("dunstrc")));
    if (!file.open(QIODevice::WriteOnly) || file.write(settings) < 0)
        throw std::runtime_error("cannot write the daemon's settings");
    file.close();
    process_.start({"dunst", "-conf", file.fileName().toStdString()});
    if (!waitUntil([&] { return bus.interface()->isServiceRegistered(service).value(); }))
        throw std::runtime_error("the notification daemon does not start");
}

QDBusMessage NotificationDaemon::call(const char* interface, const char* member,
                                      const QVariantList& arguments) {
    return peer_.call(service, QStringLiteral("/org/freedesktop/Notifications"),
                      QString::fromLatin1(interface), QString::fromLatin1(member), arguments);
}

int NotificationDaemon::displayedCount() {
    const auto reply =
        call("org.freedesktop.DBus.Properties", "Get",
             {QStringLiteral("org.dunstproject.cmd0"), QStringLiteral("displayedLength")});
    return reply.arguments().value(0).value<QDBusVariant>().variant().toInt();
}

std::vector<std::string> NotificationDaemon::takeShown() {
    call("org.dunstproject.cmd0", "NotificationCloseAll", {});
    const auto reply = call("org.dunstproject.cmd0", "NotificationListHistory", {});
    const auto history = qdbus_cast<QList<QVariantMap>>(reply.arguments().value(0));
    std::map<int, std::string> byNumber;
    for (const QVariantMap& shown : history)
        byNumber[shown[QStringLiteral("id")].toInt()] =
            shown[QStringLiteral("summary")].toString().toStdString() + " | " +
            shown[QStringLiteral("body")].toString().toStdString();
    std::vector<std::string> texts;
    for (const auto& [number, text] : byNumber)
        texts.push_back(text);
    return texts;
}

} // namespace test
