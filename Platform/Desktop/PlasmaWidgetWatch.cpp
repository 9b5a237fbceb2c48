// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Desktop/PlasmaWidgetWatch.h"

#include "Platform/DBus/DBusCall.h"
#include "Platform/DBus/ServiceError.h"

#include <QDBusMessage>
#include <QStandardPaths>

#include <chrono>
#include <utility>

namespace platform {

namespace {

const auto shellService = QStringLiteral("org.kde.plasmashell");

/// Several writes make one change of the layout.
constexpr std::chrono::milliseconds settling{200};

QString configurationFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
}

QString layoutFile() {
    return configurationFolder() + QStringLiteral("/plasma-org.kde.plasma.desktop-appletsrc");
}

/// Prints `shown`, `offered` or `absent` for the widget called `%1`.
QString script(const QString& widget) {
    return QStringLiteral("var all = panels().concat(desktops());\n"
                          "var isShown = all.some(function (place) { return "
                          "place.widgets('%1').length > 0; });\n"
                          "print(isShown ? 'shown' : knownWidgetTypes.indexOf('%1') >= 0 ? "
                          "'offered' : 'absent');")
        .arg(widget);
}

} // namespace

PlasmaWidgetWatch::PlasmaWidgetWatch(QString widget, const QDBusConnection& bus, Clock& clock)
    : widget_(std::move(widget)),
      bus_(bus),
      clock_(clock),
      shell_(shellService, bus, QDBusServiceWatcher::WatchForOwnerChange) {
    connect(&shell_, &QDBusServiceWatcher::serviceOwnerChanged, this, &PlasmaWidgetWatch::ask);
    const auto askSoon = [this] { soon_ = clock_.startTimer(settling, [this] { ask(); }); };
    connect(&files_, &QFileSystemWatcher::fileChanged, this, askSoon);
    if (bus_.isConnected())
        ask();
}

void PlasmaWidgetWatch::ask() {
    question_ = startTask(askShell());
}

Task<> PlasmaWidgetWatch::askShell() {
    auto question = QDBusMessage::createMethodCall(shellService, QStringLiteral("/PlasmaShell"),
                                                   QStringLiteral("org.kde.PlasmaShell"),
                                                   QStringLiteral("evaluateScript"));
    question.setAutoStartService(false);
    QString answer;
    try {
        const QDBusMessage reply = co_await DBusCall(bus_, question << script(widget_), clock_);
        answer = reply.arguments().value(0).toString().trimmed();
        // A file that was replaced is not the one that was watched.
        files_.addPath(layoutFile());
    } catch (const ServiceError&) {
        // No Plasma, or one that takes no questions.
    }
    setState(answer == QStringLiteral("shown")     ? State::shown
             : answer == QStringLiteral("offered") ? State::offered
                                                   : State::absent);
}

void PlasmaWidgetWatch::setState(State state) {
    if (std::exchange(state_, state) != state)
        Q_EMIT stateChanged();
}

} // namespace platform
