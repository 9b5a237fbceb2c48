// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Desktop/DevicePixels.h"

#include <QGuiApplication>
#include <QScreen>

namespace platform {

std::optional<QPoint> fromDevicePixels(QPoint point) {
    for (const QScreen* const screen : QGuiApplication::screens()) {
        const QRect logical = screen->geometry();
        const double scale = screen->devicePixelRatio();
        if (QRect(logical.topLeft(), logical.size() * scale).contains(point))
            return logical.topLeft() + (point - logical.topLeft()) / scale;
    }
    return std::nullopt;
}

} // namespace platform
