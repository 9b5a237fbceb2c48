// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/ControlStyle.h"

#include "Platform/Appearance/SystemColors.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>

#include <gtest/gtest.h>

using namespace platform;

namespace {

class Controls : public testing::Test {
protected:
    Controls() {
        QApplication::setStyle(new ControlStyle);
        adopt({});
        ControlStyle::makeSwitch(toggle_);
        box_.addItem(QStringLiteral("–"));
        for (QWidget* const control : all()) {
            control->ensurePolished();
            control->resize(control->sizeHint());
        }
    }

    ~Controls() override { QApplication::setPalette(desktop_); }

    void adopt(const DesktopWishes& wishes) {
        QApplication::setPalette(systemPalette(Appearance::light, desktop_, wishes));
        for (QWidget* const control : all())
            control->setPalette(QPalette()); // what is not shown does not follow by itself
    }

    std::vector<QWidget*> all() {
        return {&toggle_, &check_, &radio_, &spin_, &box_, &button_, &line_};
    }

    /// What a control looks like on a plain ground.
    static QImage picture(QWidget& control) {
        control.setAutoFillBackground(true);
        return control.grab().toImage().convertToFormat(QImage::Format_RGB32);
    }

    /// How many pixels differ for the eye.
    static int difference(const QImage& one, const QImage& other) {
        EXPECT_EQ(one.size(), other.size());
        int count = 0;
        for (int y = 0; y < one.height(); ++y) {
            for (int x = 0; x < one.width(); ++x) {
                constexpr int visible = 40;
                if (std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y))) > visible)
                    ++count;
            }
        }
        return count;
    }

    QPalette desktop_ = QApplication::palette();
    QCheckBox toggle_;
    QCheckBox check_;
    QRadioButton radio_;
    QSpinBox spin_;
    QComboBox box_;
    QPushButton button_;
    QLineEdit line_;
};

TEST_F(Controls, AreMirroredWhereTextRunsFromTheRight) {
    toggle_.setChecked(true);
    for (QWidget* const control :
         std::initializer_list<QWidget*>{&toggle_, &check_, &radio_, &box_}) {
        const QImage usual = picture(*control);
        control->setLayoutDirection(Qt::RightToLeft);
        EXPECT_LT(difference(picture(*control), usual.mirrored(true, false)), 12)
            << control->metaObject()->className();
    }
    spin_.setLayoutDirection(Qt::RightToLeft);
    QTest::mouseClick(&spin_, Qt::LeftButton, {}, QPoint(10, spin_.height() / 2));
    EXPECT_EQ(spin_.value(), 1) << "the step up is on the left";
}

TEST_F(Controls, HaveSolidEdgesWhereTheContrastIsToBeHigh) {
    adopt({.accent = std::nullopt, .wantsHighContrast = true});
    for (QWidget* const control : all()) {
        const QImage image = picture(*control);
        int darkest = 255;
        for (int x = 0; x < image.width() / 2; ++x)
            darkest = std::min(darkest, qGray(image.pixel(x, image.height() / 2)));
        EXPECT_LT(darkest, 40) << control->metaObject()->className();
    }
    EXPECT_EQ(picture(button_).pixelColor(button_.rect().center()), QColor(Qt::white));
}

TEST_F(Controls, AreRingedOnceTheyAreReachedByKeyboard) {
    for (QWidget* const control :
         std::initializer_list<QWidget*>{&toggle_, &check_, &radio_, &spin_, &box_, &button_}) {
        control->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(control));
        control->clearFocus();
        const QImage without = picture(*control);
        control->setFocus(Qt::MouseFocusReason);
        EXPECT_LT(difference(picture(*control), without), 30) << control->metaObject()->className();
        QTest::keyClick(control, Qt::Key_Shift);
        EXPECT_GT(difference(picture(*control), without), 80) << control->metaObject()->className();
        control->hide();
    }
}

TEST_F(Controls, GiveWayWhereTheWheelTurns) {
    box_.addItem(QStringLiteral("other"));
    for (QWidget* const control : std::initializer_list<QWidget*>{&spin_, &box_}) {
        const QPoint place = control->rect().center();
        QWheelEvent wheel(place, control->mapToGlobal(place), {}, {0, -120}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(control, &wheel);
        EXPECT_FALSE(wheel.isAccepted()) << "what lies below them scrolls";
    }
    EXPECT_EQ(spin_.value(), 0);
    EXPECT_EQ(box_.currentIndex(), 0);
}

TEST_F(Controls, PushButtonsArePressedByEnterAndSpace) {
    int presses = 0;
    QObject::connect(&button_, &QPushButton::clicked, &button_, [&presses] { ++presses; });
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space})
        QTest::keyClick(&button_, key);
    EXPECT_EQ(presses, 3);
}

TEST_F(Controls, ScrollBarsAreDraggedByTheirHandleAndPagedBesideIt) {
    QScrollBar bar(Qt::Vertical);
    bar.resize(bar.sizeHint().width(), 200);
    bar.setRange(0, 300);
    bar.setPageStep(100); // so the handle is 50 high
    bar.show();
    EXPECT_EQ(bar.width(), ControlStyle::scrollBarBreadth);
    const int middle = bar.width() / 2;
    QTest::mousePress(&bar, Qt::LeftButton, {}, {middle, 25});
    QTest::mouseMove(&bar, {middle, 100});
    EXPECT_EQ(bar.value(), 150);
    QTest::mouseRelease(&bar, Qt::LeftButton, {}, {middle, 100});
    QTest::mouseClick(&bar, Qt::LeftButton, {}, {middle, 190});
    EXPECT_EQ(bar.value(), 250);
    QTest::mouseClick(&bar, Qt::LeftButton, {}, {middle, 10});
    EXPECT_EQ(bar.value(), 150);
    const QImage scrolled = picture(bar);
    EXPECT_NE(scrolled.pixel(middle, 100), scrolled.pixel(middle, 10));
    EXPECT_EQ(scrolled.pixel(0, 100), scrolled.pixel(middle, 10)) << "thinner than its place";
}

} // namespace
