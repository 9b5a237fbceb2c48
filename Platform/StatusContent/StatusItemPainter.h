// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Appearance/Appearance.h"
#include "Platform/StatusContent/StatusItemContent.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QRectF>
#include <QSize>

#include <vector>

class QPainter;

namespace platform {

/// What a status item's text is painted in, as befits what it stands on.
struct StatusItemColors {
    QColor text;
    Appearance appearance = Appearance::light; ///< of the ground, for the coloured runs

    /// Black or white.
    static StatusItemColors on(Appearance ground);

    /// For a ground on which text is written in `text`.
    static StatusItemColors with(const QColor& text);

    bool operator==(const StatusItemColors&) const = default;
};

/// Draws a status item as one line: the image, where it is shown, then the title. Nothing but the
/// ink is painted; the ground is the caller's.
///
/// Every digit takes the same room, so that a line does not change its width with the digits in it.
class StatusItemPainter {
public:
    /// The size of the title's letters in device-independent pixels, to which runs add theirs.
    static constexpr int fontSize = 13;

    /// Lays `content` out for a line of this height in device-independent pixels. Needs the fonts
    /// of the application.
    StatusItemPainter(const StatusItemContent& content, int height);

    /// The room that it takes, in device-independent pixels: no wider than what is in it.
    QSize size() const { return size_; }

    /// Paints it from the painter's origin.
    void paint(QPainter& painter, const StatusItemColors& colors) const;

    /// The same as a picture with a transparent ground, with `scale` pixels for each of the
    /// device-independent ones.
    QImage image(int scale, const StatusItemColors& colors) const;

private:
    /// Some letters in one style, or one digit.
    struct Piece {
        QString text;
        QFont font;
        std::optional<DynamicColor> color;
        double x; ///< of the text's beginning
    };

    double addRun(const AttributedTitle::Run& run, double x);

    StatusItemImage icon_;
    bool isFaint_ = false;
    QRect iconPlace_; ///< empty without an icon
    std::vector<Piece> pieces_;
    double baseline_ = 0;
    QSize size_;
};

} // namespace platform
