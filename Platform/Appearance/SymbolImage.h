// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QRectF>
#include <QString>

class QPainter;

namespace platform {

/// A one-coloured symbol that is tinted where it is drawn. Its shape is an SVG picture, found by
/// its name in the resources of this library or the application; only the picture's opacity counts.
class SymbolImage {
public:
    /// @param name of the file ":/symbols/NAME.svg"
    explicit SymbolImage(QString name) : name_(std::move(name)) {}

    /// Fills `area` with the symbol, sharp at the resolution of what `painter` paints on.
    /// Renderings are kept in the application's pixmap cache.
    void paint(QPainter& painter, const QRectF& area, const QColor& color) const;

private:
    QString name_;
};

} // namespace platform
