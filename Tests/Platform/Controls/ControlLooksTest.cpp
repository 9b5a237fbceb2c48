// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Appearance/AccentColors.h"
#include "Platform/Appearance/SystemColors.h"
#include "Platform/Controls/ControlStyle.h"

#include <QApplication>
#include <QCheckBox>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

using namespace platform;

namespace {

/// What a control looks like on a window's ground.
class Look {
public:
    explicit Look(QWidget& control) {
        control.setBackgroundRole(QPalette::Window);
        control.setAutoFillBackground(true);
        control.ensurePolished();
        control.resize(control.sizeHint());
        image_ = control.grab().toImage();
    }

    /// In fractions of width and height.
    QColor at(double x, double y) const {
        return image_.pixelColor(static_cast<int>(x * (image_.width() - 1)),
                                 static_cast<int>(y * (image_.height() - 1)));
    }

    /// The darkest that there is between two fractions of the width; 0 is black.
    int darkest(double left = 0, double right = 1) const {
        int darkest = 255;
        for (int x = static_cast<int>(left * image_.width()); x < right * image_.width(); ++x) {
            for (int y = 0; y < image_.height(); ++y)
                darkest = std::min(darkest, qGray(image_.pixel(x, y)));
        }
        return darkest;
    }

    /// How many lines have something dark between two fractions of the width.
    int inkHeight(double left, double right) const {
        int lines = 0;
        for (int y = 0; y < image_.height(); ++y) {
            bool isDark = false;
            for (int x = static_cast<int>(left * image_.width()); x < right * image_.width(); ++x)
                isDark = isDark || qGray(image_.pixel(x, y)) < 120;
            lines += isDark;
        }
        return lines;
    }

private:
    QImage image_;
};

/// A colour laid over an opaque one.
QColor over(const QColor& color, const QColor& ground) {
    QImage mixed(1, 1, QImage::Format_RGB32);
    mixed.fill(ground);
    QPainter(&mixed).fillRect(mixed.rect(), color);
    return mixed.pixelColor(0, 0);
}

MATCHER_P(IsLike, color, "") {
    constexpr int rounding = 3;
    return std::abs(arg.red() - color.red()) <= rounding &&
           std::abs(arg.green() - color.green()) <= rounding &&
           std::abs(arg.blue() - color.blue()) <= rounding;
}

class ControlLooks : public testing::Test {
protected:
    ControlLooks() {
        QApplication::setStyle(new ControlStyle);
        QApplication::setPalette(systemPalette(Appearance::light, desktop_));
        colors_ = SystemColors::of(QApplication::palette());
        ground_ = QApplication::palette().color(QPalette::Window);
        accent_ = AccentColors::of(QApplication::palette());
    }

    ~ControlLooks() override { QApplication::setPalette(desktop_); }

    QPalette desktop_ = QApplication::palette();
    SystemColors colors_;
    QColor ground_;
    AccentColors accent_;
};

TEST_F(ControlLooks, FillTheButtonThatEnterPresses) {
    QPushButton button(QStringLiteral("Add"));
    EXPECT_THAT(Look(button).at(0.2, 0.5), IsLike(over(colors_.field, ground_)));
    const int enabled = Look(button).darkest();
    button.setDefault(true);
    EXPECT_THAT(Look(button).at(0.2, 0.5), IsLike(accent_.fill));
    button.setEnabled(false);
    EXPECT_THAT(Look(button).at(0.2, 0.5), IsLike(over(colors_.field, ground_)));
    EXPECT_GT(Look(button).darkest(), enabled + 40);
}

TEST_F(ControlLooks, TintWhatIsBelowThePointerOrHeldDown) {
    QPushButton filled(QStringLiteral("Add"));
    QPushButton flat(QStringLiteral("Add"));
    flat.setFlat(true);
    for (QPushButton* const button : {&filled, &flat}) {
        const int idle = Look(*button).at(0.1, 0.5).lightness();
        button->setAttribute(Qt::WA_UnderMouse);
        const int hovered = Look(*button).at(0.1, 0.5).lightness();
        EXPECT_LT(hovered, idle);
        button->setDown(true);
        EXPECT_LT(Look(*button).at(0.1, 0.5).lightness(), hovered);
        button->setDown(false);
        button->setEnabled(false);
        EXPECT_EQ(Look(*button).at(0.1, 0.5).lightness(), idle);
    }
}

TEST_F(ControlLooks, ShowAFlatButtonThatEnterPressesAsIfThePointerWereThere) {
    QPushButton button(QStringLiteral("Add"));
    button.setFlat(true);
    const Look idle(button);
    EXPECT_EQ(idle.at(0.05, 0.5), ground_);
    EXPECT_GT(idle.darkest(), 40) << "in the second strength of text";
    button.setDefault(true);
    const Look chosen(button);
    EXPECT_LT(chosen.at(0.05, 0.5).lightness(), ground_.lightness());
    EXPECT_LT(chosen.darkest(), idle.darkest());
    button.setEnabled(false);
    EXPECT_EQ(Look(button).at(0.05, 0.5), ground_);
    EXPECT_GT(Look(button).darkest(), idle.darkest());
}

TEST_F(ControlLooks, RingAFlatButtonThatTheKeyboardHasReached) {
    QPushButton button(QStringLiteral("Add"));
    button.setFlat(true);
    button.show();
    button.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&button));
    button.setFocus(Qt::MouseFocusReason);
    EXPECT_THAT(Look(button).at(0.5, 0), testing::Not(IsLike(colors_.accent)));
    button.clearFocus();
    button.setFocus(Qt::TabFocusReason);
    EXPECT_THAT(Look(button).at(0.5, 0), IsLike(colors_.accent));
}

TEST_F(ControlLooks, PutTheSymbolOfAButtonBehindItsText) {
    QPixmap square(16, 16);
    square.fill(Qt::black);
    QPushButton button;
    button.setFlat(true);
    button.setIconSize({12, 12});
    button.setIcon(square);
    EXPECT_EQ(Look(button).at(0.5, 0.5), QColor(Qt::black)) << "alone in the middle";
    button.setText(QStringLiteral("Ay"));
    const double edge = 1 - 8.0 / button.sizeHint().width();
    EXPECT_EQ(Look(button).at(edge, 0.5), QColor(Qt::black));
}

TEST_F(ControlLooks, DrawSwitchesCheckBoxesAndRadioButtonsEachInItsShape) {
    QCheckBox toggle;
    ControlStyle::makeSwitch(toggle);
    QCheckBox check;
    QRadioButton radio;
    EXPECT_THAT(Look(toggle).at(0.75, 0.5), IsLike(over(colors_.outline, ground_)));
    EXPECT_THAT(Look(toggle).at(0.3, 0.5), IsLike(over(colors_.knob, ground_)));
    toggle.setChecked(true);
    EXPECT_THAT(Look(toggle).at(0.25, 0.5), IsLike(accent_.fill));
    EXPECT_THAT(Look(toggle).at(0.7, 0.5), IsLike(accent_.mark));
    const auto corner = [](QAbstractButton& button) {
        button.setChecked(true);
        button.setFixedSize(button.sizeHint());
        const int middle = button.height() / 2;
        return button.grab().toImage().pixelColor(3 + 2, middle - 8 + 2);
    };
    EXPECT_THAT(corner(check), IsLike(accent_.fill));
    EXPECT_THAT(corner(radio), testing::Not(IsLike(accent_.fill))) << "round";
}

TEST_F(ControlLooks, MarkTheHalvesOfASpinBoxAndFadeTheOneAtItsEnd) {
    QSpinBox spin;
    spin.setRange(0, 2);
    spin.setValue(1);
    const Look both(spin);
    EXPECT_LT(both.inkHeight(0.1, 0.4), 5) << "a minus";
    EXPECT_GT(both.inkHeight(0.6, 0.9), 6) << "a plus";
    EXPECT_LT(both.darkest(0.6, 0.9), 60);
    spin.setValue(2);
    EXPECT_GT(Look(spin).darkest(0.6, 0.9), 100);
    EXPECT_LT(Look(spin).darkest(0.1, 0.4), 60);
    spin.setValue(0);
    EXPECT_LT(Look(spin).darkest(0.6, 0.9), 60);
    EXPECT_GT(Look(spin).darkest(0.1, 0.4), 100);
}

TEST_F(ControlLooks, DrawLinesTicksAndTheChosenEntryOfMenus) {
    QMenu menu;
    QAction* const first = menu.addAction(QStringLiteral("One"));
    QAction* const line = menu.addSeparator();
    QAction* const second = menu.addAction(QStringLiteral("Two"));
    QAction* const third = menu.addAction(QStringLiteral("Three"));
    second->setCheckable(true);
    second->setChecked(true);
    third->setCheckable(true);
    third->setEnabled(false);
    menu.setActiveAction(first);
    menu.ensurePolished();
    menu.resize(menu.sizeHint());
    const QImage image = menu.grab().toImage();
    const auto darkest = [&](QAction* action, int from, int to) {
        const QRect row = menu.actionGeometry(action);
        int darkest = 255;
        for (int x = row.left() + from; x < row.left() + to; ++x) {
            for (int y = row.top(); y <= row.bottom(); ++y)
                darkest = std::min(darkest, qGray(image.pixel(x, y)));
        }
        return darkest;
    };
    EXPECT_LT(menu.actionGeometry(line).height(), menu.actionGeometry(first).height() / 2);
    const int onLine = darkest(line, 20, 30);
    EXPECT_LT(onLine, 255);
    EXPECT_GT(onLine, 150) << "a hairline";
    const QPoint inset(4, 0);
    EXPECT_THAT(image.pixelColor(menu.actionGeometry(first).center() -
                                 QPoint(menu.actionGeometry(first).width() / 2, 0) + inset),
                IsLike(accent_.fill));
    EXPECT_LT(darkest(second, 2, 20), 60) << "ticked";
    EXPECT_GT(darkest(third, 2, 20), 200);
    const int width = menu.actionGeometry(second).width();
    EXPECT_GT(darkest(third, 20, width), darkest(second, 20, width) + 40) << "cannot be chosen";
}

} // namespace
