// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tests/EndToEnd/PanelKind.h"
#include "Tests/EndToEnd/QuorvelProcess.h"
#include "Tests/EndToEnd/VirtualDesktop.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/SimulatorProcess.h"

#include <gtest/gtest.h>

#include <list>
#include <optional>
#include <string>
#include <vector>

namespace test {

/// The whole program on a virtual desktop with a real panel and assistive technology's bus. What is
/// in the windows is read from the accessibility tree by another process.
class PanelDesktop : public testing::Test {
public:
    ~PanelDesktop() override;

protected:
    static constexpr QSize screen = VirtualDesktop::screen;
    static constexpr int panelHeight = 28;
    /// The panel and some of what is below it.
    static constexpr QRect panelArea{0, 0, screen.width(), 2 * panelHeight};

    /// The panel is not there before `startPanel`.
    explicit PanelDesktop(PanelKind kind);

    void startPanel();

    /// Ends all of its processes at once.
    void killPanel();

    /// Whether there is nothing on that part of the screen but one colour.
    bool isBare(const QRect& area) const;

    /// Whether there is something across the middle of the screen's upper edge.
    bool showsPanel() const { return !isBare({screen.width() / 2, 4, 1, 2 * panelHeight}); }

    /// Starts the program with these pairs on its watchlist.
    void startProgram(const QByteArray& watchlist);

    void push(const char* symbol, const char* price, const char* change) const;

    /// Clicks the item and, where the panel gives clicks no other meaning, chooses the first entry
    /// of its menu. Waits until the popover has the keyboard.
    void openPopover(QPoint item);

    /// Where the popover is without its shadow; absent until it has the keyboard.
    static std::optional<QRect> popover();

    /// What another program reads of the open windows: a line for each part that is shown, such as
    /// "push button|Quit||10 10 60 20". Parts are role, name, description and place.
    static QStringList accessibleParts();

    /// The first of these with this beginning as it is now, or null.
    static QString part(const QString& beginning);

    static bool showsWatchlist() { return !part(QStringLiteral("list|Watchlist|")).isNull(); }

    /// Whether a part with this beginning appears within ten seconds.
    static testing::AssertionResult showsPart(const QString& beginning);

    /// Clicks in the middle of the part with this beginning, once it is there.
    void clickOn(const QString& beginning, int button = 1) const;

    /// The pairs in the file as they are now, a "*" behind a pinned one.
    std::vector<std::string> storedPairs() const;

    const PanelKind kind_;
    VirtualDesktop desktop_;
    SimulatorProcess simulator_;
    QuorvelProcess quorvel_;

private:
    void openByMenu(QPoint item);

    ChildProcess accessibilityBus_;
    std::list<ChildProcess> panel_;
};

} // namespace test
