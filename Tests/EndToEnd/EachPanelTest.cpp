// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/EndToEnd/ItemPictures.h"
#include "Tests/EndToEnd/PanelDesktop.h"
#include "Tests/Support/WaitUntil.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>

#include <thread>

using namespace std::chrono_literals;
using test::PanelKind;

namespace {

class EachPanel : public test::PanelDesktop, public testing::WithParamInterface<PanelKind (*)()> {
protected:
    EachPanel() : PanelDesktop(GetParam()()) {
        QDir().mkpath(QFileInfo(picturePath()).path());
        QFile::remove(picturePath());
        quorvel_.setPreference(QStringLiteral("display.mode"), QStringLiteral("fixed"));
        quorvel_.setPreference(QStringLiteral("display.colorScheme"),
                               QStringLiteral("greenUpRedDown"));
    }

    /// Less its border.
    static constexpr QRect belowPanel = panelArea.adjusted(0, panelHeight + 2, 0, 0);

    /// Where the item belongs: in the panel, or, without one, at the top right.
    QRect place() const {
        return kind_.commands.empty()
                   ? panelArea.adjusted(panelArea.width() / 2, 0, 0, 0)
                   : panelArea.adjusted(0, 0, 0, panelHeight - panelArea.height());
    }

    QImage picture() const { return desktop_.picture(panelArea); }

    /// The panel once nothing has changed on it for that long.
    QImage stillPicture(std::chrono::milliseconds length) const {
        QImage still = picture();
        QElapsedTimer since;
        since.start();
        test::waitUntil([&] {
            if (const QImage now = picture(); now != still) {
                still = now;
                since.start();
            }
            return since.hasExpired(length.count());
        });
        return still;
    }

    /// The panel once it shows another price than in `before`.
    QImage pictureAfter(const QImage& before, const char* price, const char* change) const {
        push("BTCUSDT", price, change);
        test::waitUntil([&] { return picture() != before; }, 2s);
        return stillPicture(100ms);
    }

    test::ItemPictures pictures() const {
        test::ItemPictures taken;
        push("BTCUSDT", "65432.10", "1.234");
        taken.first = stillPicture(1200ms); // prices change once a second
        taken.thousands = pictureAfter(taken.first, "75432.10", "1.234");
        taken.cents = pictureAfter(taken.thousands, "75432.11", "1.234");
        taken.down = pictureAfter(taken.cents, "75432.11", "-1.234");
        return taken;
    }

    /// The pictures once nothing is wrong with them, or after that time.
    test::ItemPictures readablePictures() const {
        test::ItemPictures taken;
        std::string faults;
        test::waitUntil(
            [&] {
                taken = pictures();
                faults = taken.faults(place(), kind_.drawsColors);
                return faults.empty();
            },
            20s);
        EXPECT_EQ(faults, "");
        EXPECT_TRUE(taken.cents.save(picturePath()));
        return taken;
    }

    /// Whether the popover is on the screen, and, where programs place their windows themselves,
    /// beside the item.
    bool isPlacedFor(QPoint item) const {
        const QRect shown = popover().value_or(QRect());
        const bool isBeside = shown.top() >= item.y() && shown.top() < item.y() + panelHeight &&
                              shown.left() < item.x() && shown.right() > item.x();
        return QRect(QPoint(), screen).contains(shown) && (isBeside || kind_.isOnWayland);
    }

    QString picturePath() const {
        return QStringLiteral(QUORVEL_PANEL_PICTURES "/%1.png")
            .arg(QString::fromLatin1(kind_.name));
    }

    /// By another click where that is no menu, and sees that this does not open it anew.
    void closePopover(QPoint item) const {
        constexpr auto longerThanDoubleClick = 500ms;
        std::this_thread::sleep_for(longerThanDoubleClick);
        if (kind_.clickOpensMenu)
            desktop_.press({QStringLiteral("Escape")});
        else
            desktop_.click(item);
        EXPECT_TRUE(test::waitUntil([] { return !showsWatchlist(); }));
        EXPECT_FALSE(test::waitUntil([] { return showsWatchlist(); }, 500ms)) << "opened anew";
    }
};

TEST_P(EachPanel, ShowsTheItemOfAProgramThatWasThereBefore) {
    push("BTCUSDT", "65432.10", "1.234");
    startProgram(R"([{"symbol":{"base":"BTC","quote":"USDT"},"isPinnedToStatusBar":true}])");
    if (!kind_.isOnWayland) {
        EXPECT_TRUE(test::waitUntil([this] { return !isBare(panelArea); }))
            << "no strip while there is no panel";
    }
    startPanel();
    const QPoint item = readablePictures().lastFigure().center();
    ASSERT_FALSE(HasFailure());
    EXPECT_TRUE(kind_.commands.empty() || isBare(belowPanel)) << "the strip stays beside the panel";
    openPopover(item);
    // Window managers may have another place for it at first.
    EXPECT_TRUE(test::waitUntil([&] { return isPlacedFor(item); }, 5s))
        << "popover at " << popover().value_or(QRect()).top();
    closePopover(item);
    desktop_.movePointer(QRect(QPoint(), screen).center());
    if (kind_.commands.empty())
        return;

    killPanel();
    ASSERT_TRUE(test::waitUntil([this] { return !showsPanel(); }));
    startPanel();
    readablePictures();
}

INSTANTIATE_TEST_SUITE_P(Desktop, EachPanel,
                         testing::Values(&PanelKind::mate, &PanelKind::xfce, &PanelKind::waybar,
                                         &PanelKind::none),
                         [](const auto& info) { return info.param().name; });

} // namespace
