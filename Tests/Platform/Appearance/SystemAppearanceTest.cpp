// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Appearance/SystemAppearance.h"

#include "Platform/Appearance/SystemColors.h"
#include "Tests/Support/PrivateBus.h"
#include "Tests/Support/WaitUntil.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QGuiApplication>
#include <QPalette>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <cmath>

using namespace platform;

namespace {

const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");

/// The part of a desktop's portal that tells its colour scheme.
class SettingsPortal : public QDBusVirtualObject {
public:
    SettingsPortal(QDBusConnection bus, uint scheme) : bus_(std::move(bus)), scheme_(scheme) {
        bus_.registerVirtualObject(portalPath, this);
        bus_.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }

    int answerCount() const { return answerCount_; }

    void change(const char* key, uint scheme) {
        auto signal = QDBusMessage::createSignal(portalPath, settingsInterface,
                                                 QStringLiteral("SettingChanged"));
        signal.setArguments({QStringLiteral("org.freedesktop.appearance"), QString::fromLatin1(key),
                             QVariant::fromValue(QDBusVariant(scheme))});
        bus_.send(signal);
    }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        if (message.arguments() != QVariantList{QStringLiteral("org.freedesktop.appearance"),
                                                QStringLiteral("color-scheme")})
            return false;
        ++answerCount_;
        const QVariant inner = QVariant::fromValue(QDBusVariant(scheme_));
        return bus.send(message.createReply(QVariant::fromValue(QDBusVariant(inner))));
    }

    QString introspect(const QString&) const override { return {}; }

private:
    QDBusConnection bus_;
    uint scheme_;
    int answerCount_ = 0;
};

struct Scheme {
    uint code;
    std::optional<Appearance> appearance;
};

class EachScheme : public testing::TestWithParam<Scheme> {};

TEST_P(EachScheme, IsAskedForAndFollowed) {
    test::PrivateBus bus;
    SettingsPortal portal(bus.connect(), GetParam().code);
    SystemAppearance appearance(bus.connect());
    ASSERT_TRUE(test::waitUntil([&] { return portal.answerCount() == 1; }));
    EXPECT_TRUE(test::waitUntil([&] { return appearance.preferred() == GetParam().appearance; }));
    QSignalSpy spy(&appearance, &SystemAppearance::preferredChanged);
    portal.change("accent-color", 0);
    const uint other = GetParam().code == 1 ? 2 : 1;
    portal.change("color-scheme", other);
    portal.change("color-scheme", other);
    EXPECT_TRUE(test::waitUntil([&] { return spy.count() == 1; }));
    EXPECT_EQ(appearance.preferred(), other == 1 ? Appearance::dark : Appearance::light);
}

INSTANTIATE_TEST_SUITE_P(Schemes, EachScheme,
                         testing::Values(Scheme{1, Appearance::dark}, Scheme{2, Appearance::light},
                                         Scheme{0, std::nullopt}, Scheme{7, std::nullopt}));

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

INSTANTIATE_TEST_SUITE_P(Appearances, EachAppearance,
                         testing::Values(Appearance::light, Appearance::dark));

} // namespace
