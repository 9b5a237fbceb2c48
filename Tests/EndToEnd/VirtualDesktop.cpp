// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/EndToEnd/VirtualDesktop.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include <csignal>
#include <pwd.h>
#include <stdexcept>
#include <unistd.h>

using namespace std::chrono_literals;

namespace test {

namespace {

// The output takes the display whole, and the first lines printed tell who waits where.
constexpr char compositorSettings[] = R"(xwayland force
output X11-1 mode --custom 1280x800
default_border none
exec 'echo "$DISPLAY"; echo "$WAYLAND_DISPLAY"'
)";

// Any user may open windows there: the program is not the compositor's.
constexpr char openServer[] = "#!/bin/sh\nexec Xwayland -ac \"$@\"\n";

void require(const std::string& program) {
    if (QStandardPaths::findExecutable(QString::fromStdString(program)).isEmpty())
        throw std::runtime_error(program + " is not installed; ./dev test --panels installs it");
}

constexpr auto forOthers = QFile::ReadOther | QFile::ExeOther;

} // namespace

VirtualDesktop::VirtualDesktop() {
    for (const auto& [name, folder] : {std::pair{"XDG_CONFIG_HOME", "config"},
                                       {"XDG_DATA_HOME", "data"},
                                       {"XDG_CACHE_HOME", "cache"},
                                       {"XDG_RUNTIME_DIR", "run"}}) {
        const QString path = directory_.filePath(QString::fromLatin1(folder));
        QDir().mkpath(path);
        setVariable(name, path.toUtf8());
    }
    QFile::setPermissions(directory_.filePath(QStringLiteral("run")),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    // What a session around the tests has of its own.
    for (const char* const name : {"WAYLAND_DISPLAY", "SESSION_MANAGER", "SWAYSOCK"})
        setVariable(name, std::nullopt);
    setVariable("NO_AT_BRIDGE", "1");
    // Services see what the environment is now.
    bus_.emplace(PrivateBus::Services::installed);
}

VirtualDesktop::~VirtualDesktop() {
    // Killed, a Wayland compositor would leave its server's lock behind. The pipe is at its end
    // when the last of those who have it is gone.
    windowManager_.sendSignal(SIGTERM);
    windowManager_.readLine(5s);
    for (const auto& [name, value] : environmentBefore_)
        value ? qputenv(name.constData(), *value) : qunsetenv(name.constData());
}

void VirtualDesktop::writeSettings(const QString& path, const QByteArray& bytes) const {
    const QString full = directory_.filePath(QStringLiteral("config/") + path);
    QDir().mkpath(QFileInfo(full).path());
    QFile file(full);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw std::runtime_error("cannot write " + full.toStdString());
}

void VirtualDesktop::setVariable(const char* name, const std::optional<QByteArray>& value) {
    environmentBefore_.try_emplace(
        name, qEnvironmentVariableIsSet(name) ? std::optional(qgetenv(name)) : std::nullopt);
    value ? qputenv(name, *value) : qunsetenv(name);
}

void VirtualDesktop::launch(ChildProcess& process, std::vector<std::string> command) const {
    require(command.front());
    command.insert(command.begin(), userChange_.begin(), userChange_.end());
    process.start(std::move(command));
}

void VirtualDesktop::startX11Session() {
    setVariable("XDG_SESSION_TYPE", "x11");
    launch(windowManager_, {"openbox", "--sm-disable"});
    launch(compositor_, {"picom", "--backend", "xrender"});
}

void VirtualDesktop::startWaylandSession() {
    require("Xwayland");
    setVariable("XDG_SESSION_TYPE", "wayland");
    setVariable("WLR_BACKENDS", "x11");
    setVariable("WLR_RENDERER", "pixman");
    writeSettings(QStringLiteral("sway/config"), compositorSettings);
    const QString server = directory_.filePath(QStringLiteral("config/Xwayland"));
    writeSettings(QStringLiteral("Xwayland"), openServer);
    QFile::setPermissions(server, QFile::permissions(server) | QFile::ExeOwner | forOthers);
    setVariable("WLR_XWAYLAND", server.toUtf8());
    if (::geteuid() == 0)
        handOver();
    launch(windowManager_, {"sway"});
    const std::string inner = windowManager_.readLine(20s);
    const std::string socket = windowManager_.readLine(20s);
    if (inner.empty() || socket.empty())
        throw std::runtime_error("sway does not start");
    setVariable("DISPLAY", QByteArray::fromStdString(inner));
    setVariable("WAYLAND_DISPLAY",
                qgetenv("XDG_RUNTIME_DIR") + '/' + QByteArray::fromStdString(socket));
}

void VirtualDesktop::handOver() {
    const passwd* const user = ::getpwnam("nobody");
    if (!user)
        throw std::runtime_error("there is no user nobody, and sway does not run as root");
    QFile::setPermissions(directory_.path(), QFile::permissions(directory_.path()) | forOthers);
    if (::chown(qgetenv("XDG_RUNTIME_DIR").constData(), user->pw_uid, user->pw_gid) != 0)
        throw std::runtime_error("cannot give a folder to the user nobody");
    setVariable("HOME", qgetenv("XDG_RUNTIME_DIR"));
    // Changing the user takes back that the process ends with its parent.
    userChange_ = {"setpriv",
                   "--reuid=" + std::to_string(user->pw_uid),
                   "--regid=" + std::to_string(user->pw_gid),
                   "--clear-groups",
                   "--pdeathsig=KILL",
                   "--"};
}

QByteArray VirtualDesktop::run(const QString& program, const QStringList& arguments) {
    require(program.toStdString());
    QProcess process;
    process.start(program, arguments, QIODevice::ReadOnly);
    if (!process.waitForFinished(20'000))
        throw std::runtime_error(program.toStdString() + " does not end");
    return process.readAllStandardOutput();
}

QImage VirtualDesktop::picture(const QRect& area) const {
    const QByteArray bytes =
        run(QStringLiteral("import"),
            QStringLiteral("-display %1 -window root -crop %2x%3+%4+%5 +repage ppm:-")
                .arg(QString::fromLatin1(displayName_))
                .arg(area.width())
                .arg(area.height())
                .arg(area.x())
                .arg(area.y())
                .split(u' '));
    const auto image = QImage::fromData(bytes, "ppm");
    if (image.size() != area.size())
        throw std::runtime_error("no picture of the display");
    return image;
}

void VirtualDesktop::sendEvents(const QStringList& words) const {
    require("xdotool");
    run(QStringLiteral("env"),
        QStringList{QStringLiteral("DISPLAY=") + QString::fromLatin1(displayName_),
                    QStringLiteral("xdotool")} +
            words);
}

void VirtualDesktop::movePointer(QPoint point) const {
    sendEvents(
        {QStringLiteral("mousemove"), QString::number(point.x()), QString::number(point.y())});
}

void VirtualDesktop::click(QPoint point, int button) const {
    movePointer(point);
    sendEvents({QStringLiteral("click"), QString::number(button)});
}

void VirtualDesktop::press(const QStringList& keys) const {
    sendEvents(QStringList{QStringLiteral("key")} + keys);
}

void VirtualDesktop::type(const char* text) const {
    sendEvents({QStringLiteral("type"), QString::fromLatin1(text)});
}

std::optional<QRect> VirtualDesktop::activeWindow() {
    const QStringList lines =
        QString::fromUtf8(run(QStringLiteral("xdotool"),
                              {QStringLiteral("getactivewindow"), QStringLiteral("getwindowname"),
                               QStringLiteral("getwindowgeometry"), QStringLiteral("--shell")}))
            .split(u'\n');
    if (lines.value(0) != u"Quorvel")
        return std::nullopt;
    std::map<QString, int> values;
    for (const QString& line : lines)
        values[line.section(u'=', 0, 0)] = line.section(u'=', 1).toInt();
    return QRect(values[QStringLiteral("X")], values[QStringLiteral("Y")],
                 values[QStringLiteral("WIDTH")], values[QStringLiteral("HEIGHT")]);
}

} // namespace test
