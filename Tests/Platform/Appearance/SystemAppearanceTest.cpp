// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Appearance/SystemAppearance.h"

#include "Platform/Appearance/SystemColors.h"
#include "Platform/Appearance/SystemFonts.h"
#include "Tests/Support/Bus/PrivateBus.h"
#include "Tests/Support/ManualClock.h"
#include "Tests/Support/WaitUntil.h"

#include <QApplication>
#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QPalette>
#include <QSignalSpy>
#include <QWidget>

#include <gtest/gtest.h>

#include <cmath>

using namespace platform;

namespace {

const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");

/// The part of a desktop's portal that tells how programs are to look. It knows no accent unless
/// given one.
class SettingsPortal : public QDBusVirtualObject {
public:
    SettingsPortal(QDBusConnection bus, QVariantMap values)
        : bus_(std::move(bus)), values_(std::move(values)) {
        bus_.registerVirtualObject(portalPath, this);
        bus_.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }

    int readCount() const { return readCount_; }

    void change(const char* key, const QVariant& value) {
        auto signal = QDBusMessage::createSignal(portalPath, settingsInterface,
                                                 QStringLiteral("SettingChanged"));
        signal.setArguments({QStringLiteral("org.freedesktop.appearance"), QString::fromLatin1(key),
                             QVariant::fromValue(QDBusVariant(value))});
        bus_.send(signal);
    }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        if (message.arguments().value(0) != QStringLiteral("org.freedesktop.appearance"))
            return false;
        ++readCount_;
        const auto found = values_.find(message.arguments().value(1).toString());
        if (found == values_.end())
            return bus.send(message.createErrorReply(
                QStringLiteral("org.freedesktop.portal.Error.NotFound"), QString()));
        const QVariant inner = QVariant::fromValue(QDBusVariant(*found));
        return bus.send(message.createReply(QVariant::fromValue(QDBusVariant(inner))));
    }

    QString introspect(const QString&) const override { return {}; }

private:
    QDBusConnection bus_;
    QVariantMap values_;
    int readCount_ = 0;
};

QVariant rgb(double red, double green, double blue) {
    QDBusArgument parts;
    parts.beginStructure();
    parts << red << green << blue;
    parts.endStructure();
    return QVariant::fromValue(parts);
}

const QString schemeKey = QStringLiteral("color-scheme");
constexpr int keyCount = 3; // scheme, accent, contrast

struct Scheme {
    uint code;
    std::optional<Appearance> appearance;
};

class EachScheme : public testing::TestWithParam<Scheme> {};

TEST_P(EachScheme, IsAskedForAndFollowed) {
    test::PrivateBus bus;
    test::ManualClock clock;
    SettingsPortal portal(bus.connect(), {{schemeKey, GetParam().code}});
    SystemAppearance appearance(bus.connect(), clock);
    ASSERT_TRUE(test::waitUntil([&] { return portal.readCount() == keyCount; }));
    EXPECT_TRUE(test::waitUntil([&] { return appearance.preferred() == GetParam().appearance; }));
    QSignalSpy spy(&appearance, &SystemAppearance::preferredChanged);
    portal.change("unheard-of", 0u);
    const uint other = GetParam().code == 1 ? 2 : 1;
    portal.change("color-scheme", other);
    portal.change("color-scheme", other);
    EXPECT_TRUE(test::waitUntil([&] { return spy.count() == 1; }));
    EXPECT_EQ(appearance.preferred(), other == 1 ? Appearance::dark : Appearance::light);
    EXPECT_EQ(appearance.wishes(), DesktopWishes());
}

INSTANTIATE_TEST_SUITE_P(Schemes, EachScheme,
                         testing::Values(Scheme{1, Appearance::dark}, Scheme{2, Appearance::light},
                                         Scheme{0, std::nullopt}, Scheme{7, std::nullopt}));

TEST(DesktopsWishes, ForAccentAndContrastAreFollowed) {
    test::PrivateBus bus;
    test::ManualClock clock;
    SettingsPortal portal(bus.connect(), {{QStringLiteral("accent-color"), rgb(1, 0.5, 0)},
                                          {QStringLiteral("contrast"), 1u}});
    SystemAppearance appearance(bus.connect(), clock);
    const DesktopWishes wishes{.accent = QColor::fromRgbF(1, 0.5F, 0), .wantsHighContrast = true};
    EXPECT_TRUE(test::waitUntil([&] { return appearance.wishes() == wishes; }));
    portal.change("accent-color", rgb(-1, -1, -1));
    portal.change("contrast", 0u);
    EXPECT_TRUE(test::waitUntil([&] { return appearance.wishes() == DesktopWishes(); }));
}

TEST(TheDesktopsFont, IsFollowedInItsFamilyAlone) {
    constexpr int size = 14;
    QWidget widget;
    widget.setFont(systemFont(size, QFont::Medium));
    const QFont before = QApplication::font();
    QFont other(QStringLiteral("Some Other Family"));
    other.setPointSize(40);
    QApplication::setFont(other);
    QEvent change(QEvent::ApplicationFontChange); // as sent once the event loop runs
    QApplication::sendEvent(&widget, &change);
    EXPECT_EQ(widget.font().family(), other.family());
    EXPECT_EQ(widget.font().pixelSize(), size);
    EXPECT_EQ(widget.font().weight(), QFont::Medium);
    QApplication::setFont(before);
}

double luminance(const QColor& color) {
    const auto linear = [](float part) {
        const auto value = static_cast<double>(part);
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

QColor over(const QColor& top, const QColor& ground) {
    const float alpha = top.alphaF();
    const auto mix = [alpha](float a, float b) { return a * alpha + b * (1 - alpha); };
    return QColor::fromRgbF(mix(top.redF(), ground.redF()), mix(top.greenF(), ground.greenF()),
                            mix(top.blueF(), ground.blueF()));
}

double contrast(const QColor& text, const QColor& ground) {
    const double one = luminance(over(text, ground));
    const double other = luminance(ground);
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

class EachAppearance : public testing::TestWithParam<Appearance> {};

TEST_P(EachAppearance, KeepsTextReadable) {
    QPalette desktop;
    desktop.setColor(QPalette::Highlight, QColor(48, 140, 198));
    const QPalette palette = systemPalette(GetParam(), desktop);
    EXPECT_EQ(appearanceOf(palette), GetParam());
    const auto colors = SystemColors::of(palette);
    EXPECT_EQ(colors.accent, QColor(48, 140, 198));
    for (const QColor& text :
         {colors.label, colors.secondaryLabel, colors.tertiaryLabel, colors.orange}) {
        EXPECT_GE(contrast(text, colors.background), 4.5) << text.name().toStdString();
        EXPECT_GE(contrast(text, over(colors.hover, colors.background)), 4.5);
    }
    EXPECT_GE(
        contrast(palette.color(QPalette::PlaceholderText), over(colors.field, colors.background)),
        4.5);
    EXPECT_GE(contrast(colors.accent, colors.background), 3.0);
}

TEST_P(EachAppearance, IsBlackAndWhiteWhereTheContrastIsToBeHigh) {
    const QColor accent(255, 220, 0);
    const QPalette palette =
        systemPalette(GetParam(), QPalette(), {.accent = accent, .wantsHighContrast = true});
    EXPECT_EQ(appearanceOf(palette), GetParam());
    const auto colors = SystemColors::of(palette);
    for (const QColor& color : {colors.secondaryLabel, colors.tertiaryLabel, colors.outline,
                                colors.separator, colors.edge.value_or(QColor())})
        EXPECT_EQ(contrast(color, colors.background), 21) << color.name().toStdString();
    EXPECT_EQ(colors.accent, accent);
    EXPECT_GE(contrast(palette.color(QPalette::HighlightedText), accent), 4.5);
    EXPECT_FALSE(SystemColors::of(systemPalette(GetParam(), QPalette())).edge);
}

INSTANTIATE_TEST_SUITE_P(Appearances, EachAppearance,
                         testing::Values(Appearance::light, Appearance::dark));

} // namespace
