#include "Tests/EndToEnd/PanelDesktop.h"

#include "Tests/Support/WaitUntil.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <algorithm>
#include <csignal>
#include <stdexcept>

using namespace std::chrono_literals;

namespace test {

namespace {

// One panel at the top that holds nothing but the applet which shows status items.
constexpr char panelSettings[] = R"([org/mate/panel/general]
toplevel-id-list=['top']
object-id-list=['ind']

[org/mate/panel/toplevels/top]
orientation='top'
expand=true
size=28

[org/mate/panel/objects/ind]
object-type='applet'
applet-iid='IndicatorAppletFactory::IndicatorApplet'
toplevel-id='top'
position=0
panel-right-stick=true
)";

constexpr char indicatorService[] =
    "/usr/libexec/ayatana-indicator-application/ayatana-indicator-application-service";

void write(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw std::runtime_error("cannot write " + path.toStdString());
}

} // namespace

PanelDesktop::PanelDesktop() {
    for (const char* const folder : {"config", "data", "cache", "run"})
        QDir(directory_.path()).mkpath(QString::fromLatin1(folder));
    QFile::setPermissions(directory_.filePath(QStringLiteral("run")),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    startDisplay();
    startPanel();
    quorvel_.setExchange(simulator_.restURL(), simulator_.streamURL());
}

PanelDesktop::~PanelDesktop() {
    // Killed, it would leave the bus behind that it has started.
    accessibilityBus_.sendSignal(SIGTERM);
    accessibilityBus_.waitForEnd(5s);
    for (const auto& [name, value] : environmentBefore_)
        value ? qputenv(name.constData(), *value) : qunsetenv(name.constData());
}

void PanelDesktop::setVariable(const char* name, const QByteArray& value) {
    environmentBefore_.try_emplace(
        name, qEnvironmentVariableIsSet(name) ? std::optional(qgetenv(name)) : std::nullopt);
    qputenv(name, value);
}

void PanelDesktop::startDisplay() {
    for (const auto& [name, folder] : {std::pair{"XDG_CONFIG_HOME", "config"},
                                       {"XDG_DATA_HOME", "data"},
                                       {"XDG_CACHE_HOME", "cache"},
                                       {"XDG_RUNTIME_DIR", "run"}})
        setVariable(name, directory_.filePath(QString::fromLatin1(folder)).toUtf8());
    display_.start({"Xvfb", "-displayfd", "1", "-screen", "0", "1280x800x24", "-nolisten", "tcp"});
    setVariable("DISPLAY", ":" + QByteArray::fromStdString(display_.readLine(10s)));
    bus_.start({"dbus-daemon", "--session", "--nofork", "--print-address=1"});
    setVariable("DBUS_SESSION_BUS_ADDRESS", QByteArray::fromStdString(bus_.readLine(10s)));
    windowManager_.start({"openbox", "--sm-disable"});
    compositor_.start({"picom", "--backend", "xrender"});
}

void PanelDesktop::startPanel() {
    write(directory_.filePath(QStringLiteral("config/glib-2.0/settings/keyfile")), panelSettings);
    setVariable("GSETTINGS_BACKEND", "keyfile");
    setVariable("XDG_CURRENT_DESKTOP", "MATE");
    setVariable("XDG_SESSION_TYPE", "x11");
    setVariable("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    accessibilityBus_.start({"/usr/libexec/at-spi-bus-launcher", "--launch-immediately"});
    indicatorService_.start({indicatorService});
    panel_.start({"env", "NO_AT_BRIDGE=1", "mate-panel"});
}

QByteArray PanelDesktop::run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments, QIODevice::ReadOnly);
    if (!process.waitForFinished(20'000))
        throw std::runtime_error(program.toStdString() + " does not end");
    return process.readAllStandardOutput();
}

QByteArray PanelDesktop::pixels(const QRect& area) {
    return run(QStringLiteral("import"),
               QStringLiteral("-silent -window root -crop %1x%2+%3+%4 rgb:-")
                   .arg(area.width())
                   .arg(area.height())
                   .arg(area.x())
                   .arg(area.y())
                   .split(u' '));
}

void PanelDesktop::start(const QByteArray& watchlist) {
    const QRect end(screen.width() - 60, 0, 60, panelHeight);
    QByteArray empty;
    const auto hasPanel = [&] {
        empty = pixels(end);
        return empty.at(0) != 0; // the bare display is black
    };
    ASSERT_TRUE(waitUntil(hasPanel, 20s));
    quorvel_.writeWatchlist(watchlist);
    quorvel_.useDisplay();
    quorvel_.start();
    ASSERT_TRUE(waitUntil([&] { return pixels(end) != empty; }, 20s));
}

void PanelDesktop::openPopover() {
    const QPoint item(screen.width() - 40, panelHeight / 2);
    const QRect below(item.x() - 60, panelHeight, 80, 60);
    const QByteArray before = pixels(below);
    // On a busy machine the click may come while the panel still makes room for the item, and the
    // keys before the menu has taken the keyboard.
    for (int attempt = 0; attempt < 3; ++attempt) {
        run(QStringLiteral("xdotool"),
            QStringLiteral("mousemove %1 %2 click 1").arg(item.x()).arg(item.y()).split(u' '));
        if (!waitUntil([&] { return pixels(below) != before; }, 5s))
            continue;
        press({QStringLiteral("Down"), QStringLiteral("Return")});
        if (waitUntil([] { return popover().has_value(); }, 5s))
            return;
        press({QStringLiteral("Escape")});
        waitUntil([&] { return pixels(below) == before; }, 2s);
    }
    FAIL() << "no popover";
}

std::optional<QRect> PanelDesktop::popover() {
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

void PanelDesktop::press(const QStringList& keys) {
    run(QStringLiteral("xdotool"), QStringList{QStringLiteral("key")} + keys);
}

void PanelDesktop::type(const char* text) {
    run(QStringLiteral("xdotool"), {QStringLiteral("type"), QString::fromLatin1(text)});
}

QStringList PanelDesktop::accessibleParts() {
    return QString::fromUtf8(
               run(QStringLiteral("/usr/bin/python3"), {QStringLiteral(QUORVEL_ACCESSIBLE_PARTS)}))
        .split(u'\n', Qt::SkipEmptyParts);
}

bool PanelDesktop::showsPart(const QString& beginning) {
    return waitUntil(
        [&] {
            const QStringList parts = accessibleParts();
            return std::ranges::any_of(
                parts, [&](const QString& part) { return part.startsWith(beginning); });
        },
        10s);
}

std::vector<std::string> PanelDesktop::storedPairs() const {
    QFile file(quorvel_.watchlistPath());
    std::vector<std::string> pairs;
    if (!file.open(QIODevice::ReadOnly))
        return pairs;
    for (const auto item : QJsonDocument::fromJson(file.readAll()).array()) {
        const bool isPinned = item[u"isPinnedToStatusBar"].toBool();
        pairs.push_back(item[u"symbol"][u"base"].toString().toStdString() + (isPinned ? "*" : ""));
    }
    return pairs;
}

} // namespace test
