// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/EndToEnd/PanelDesktop.h"

#include "Tests/Support/WaitUntil.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <csignal>
#include <utility>

using namespace std::chrono_literals;

namespace test {

PanelDesktop::PanelDesktop(PanelKind kind) : kind_(std::move(kind)) {
    for (const auto& [path, text] : kind_.settings)
        desktop_.writeSettings(QString::fromLatin1(path), text);
    desktop_.setVariable("GSETTINGS_BACKEND", "keyfile");
    desktop_.setVariable("XDG_CURRENT_DESKTOP", kind_.desktopName);
    desktop_.setVariable("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    desktop_.launch(accessibilityBus_,
                    {"/usr/libexec/at-spi-bus-launcher", "--launch-immediately"});
    if (kind_.isOnWayland)
        desktop_.startWaylandSession();
    else
        desktop_.startX11Session();
    quorvel_.setExchange(simulator_.restURL(), simulator_.streamURL());
}

PanelDesktop::~PanelDesktop() {
    // Killed, it would leave the bus behind that it has started.
    accessibilityBus_.sendSignal(SIGTERM);
    accessibilityBus_.waitForEnd(5s);
}

void PanelDesktop::startPanel() {
    for (const auto& command : kind_.commands)
        desktop_.launch(panel_.emplace_back(), command);
}

void PanelDesktop::killPanel() {
    panel_.clear();
}

bool PanelDesktop::isBare(const QRect& area) const {
    const QImage shown = desktop_.picture(area);
    QImage plain(shown.size(), shown.format());
    plain.fill(shown.pixel(0, 0));
    return shown == plain;
}

void PanelDesktop::startProgram(const QByteArray& watchlist) {
    quorvel_.writeWatchlist(watchlist);
    quorvel_.useDisplay();
    quorvel_.start();
    ASSERT_TRUE(waitUntil([this] { return simulator_.connectionCount() == 1; }));
}

void PanelDesktop::push(const char* symbol, const char* price, const char* change) const {
    simulator_.control(QStringLiteral("push"),
                       {{QStringLiteral("symbol"), QString::fromUtf8(symbol)},
                        {QStringLiteral("price"), QString::fromUtf8(price)},
                        {QStringLiteral("change"), QString::fromUtf8(change)}});
}

void PanelDesktop::openPopover(QPoint item) {
    if (kind_.clickOpensMenu)
        openByMenu(item);
    else
        desktop_.click(item);
    ASSERT_TRUE(waitUntil([] { return popover().has_value(); }));
}

void PanelDesktop::openByMenu(QPoint item) {
    const QRect below(item.x() - 240, panelHeight, 260, 60);
    const QImage before = desktop_.picture(below);
    // On a busy machine the click may come while the panel still makes room for the item, and the
    // keys before the menu has taken the keyboard.
    for (int attempt = 0; attempt < 3; ++attempt) {
        desktop_.click(item);
        if (!waitUntil([&] { return desktop_.picture(below) != before; }, 5s))
            continue;
        desktop_.press({QStringLiteral("Down"), QStringLiteral("Return")});
        if (waitUntil([] { return popover().has_value(); }, 5s))
            return;
        desktop_.press({QStringLiteral("Escape")});
        waitUntil([&] { return desktop_.picture(below) == before; }, 2s);
    }
}

std::optional<QRect> PanelDesktop::popover() {
    constexpr int shadow = 18;
    const auto window = VirtualDesktop::activeWindow();
    return window ? std::optional(window->adjusted(shadow, shadow, -shadow, -shadow))
                  : std::nullopt;
}

QStringList PanelDesktop::accessibleParts() {
    return QString::fromUtf8(VirtualDesktop::run(QStringLiteral("/usr/bin/python3"),
                                                 {QStringLiteral(QUORVEL_ACCESSIBLE_PARTS)}))
        .split(u'\n', Qt::SkipEmptyParts);
}

testing::AssertionResult PanelDesktop::showsPart(const QString& beginning) {
    if (waitUntil([&] { return !part(beginning).isNull(); }, 10s))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "there is only\n"
                                       << accessibleParts().join(u'\n').toStdString();
}

QString PanelDesktop::part(const QString& beginning) {
    const QStringList parts = accessibleParts();
    const auto found = std::ranges::find_if(
        parts, [&](const QString& candidate) { return candidate.startsWith(beginning); });
    return found == parts.end() ? QString() : *found;
}

void PanelDesktop::clickOn(const QString& beginning, int button) const {
    ASSERT_TRUE(showsPart(beginning));
    const QStringList place = part(beginning).section(u'|', -1).split(u' ');
    ASSERT_EQ(place.size(), 4);
    desktop_.click(
        {place[0].toInt() + place[2].toInt() / 2, place[1].toInt() + place[3].toInt() / 2}, button);
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
