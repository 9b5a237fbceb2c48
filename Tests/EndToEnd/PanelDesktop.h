#pragma once

#include "Tests/EndToEnd/QuorvelProcess.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/SimulatorProcess.h"

#include <QRect>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace test {

/// The whole program on a virtual display with a window manager, a compositor, a real panel and
/// assistive technology's bus: each a process of its own. What a user does is done by X events, and
/// what is seen is read from the accessibility tree by another process.
class PanelDesktop : public testing::Test {
protected:
    static constexpr QSize screen{1280, 800};
    static constexpr int panelHeight = 28;

    PanelDesktop();
    ~PanelDesktop() override;

    /// Starts the program with these pairs on its watchlist, and waits for its item in the panel.
    void start(const QByteArray& watchlist);

    /// Clicks the item in the panel and chooses the first entry of its menu: this panel gives
    /// clicks no other meaning. Waits until the popover has the keyboard.
    void openPopover();

    /// Where the popover is with its shadow; absent while it does not have the keyboard.
    static std::optional<QRect> popover();

    /// Types the keys as xdotool names them.
    static void press(const QStringList& keys);
    static void type(const char* text);

    /// What another program reads of the open windows: a line for each part that is shown, such as
    /// "push button|Quit|". Parts are role, name and description.
    static QStringList accessibleParts();

    /// Whether a part with this beginning appears within ten seconds.
    static bool showsPart(const QString& beginning);

    /// The pairs in the file as they are now, a "*" behind a pinned one.
    std::vector<std::string> storedPairs() const;

    SimulatorProcess simulator_;
    QuorvelProcess quorvel_;

private:
    void startDisplay();
    void startPanel();
    void setVariable(const char* name, const QByteArray& value);
    static QByteArray pixels(const QRect& area);
    static QByteArray run(const QString& program, const QStringList& arguments);

    QTemporaryDir directory_;
    std::map<QByteArray, std::optional<QByteArray>> environmentBefore_;
    ChildProcess display_;
    ChildProcess bus_;
    ChildProcess windowManager_;
    ChildProcess compositor_;
    ChildProcess accessibilityBus_;
    ChildProcess indicatorService_;
    ChildProcess panel_;
};

} // namespace test
