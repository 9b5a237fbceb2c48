// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QProxyStyle>

namespace platform {

/// How menus of ours look, whatever the desktop's style: rows with the marks of our controls on a
/// card with rounded corners where the display blends windows.
class MenuStyle final : public QProxyStyle {
    Q_OBJECT

public:
    static constexpr int rowHeight = 28;
    /// Between the menu's edge and its rows.
    static constexpr int inset = 4;
    /// Between a row's edge and its text, the place of the tick included.
    static constexpr int textInset = 26;

    MenuStyle() = default;

    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

} // namespace platform
