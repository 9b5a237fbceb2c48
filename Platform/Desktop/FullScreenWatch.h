// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QRect>

namespace platform {

/// Follows whether the window that the user works in fills its screen. Without an X display none
/// ever does. Lives on the GUI thread.
class FullScreenWatch final : public QObject, private QAbstractNativeEventFilter {
    Q_OBJECT

public:
    explicit FullScreenWatch(QObject* parent = nullptr);
    ~FullScreenWatch() override;

    /// Whether it does so on the screen where `point` is, in global device-independent coordinates.
    bool covers(QPoint point) const;

Q_SIGNALS:
    /// Emitted from the event loop, never while an event of the display is being handled.
    void changed();

private:
    bool nativeEventFilter(const QByteArray& type, void* event, qintptr* result) override;
    void refresh();

    quint32 active_ = 0;  ///< the window that the user works in
    bool isFull_ = false; ///< whether it fills its screen
    QPoint corner_;       ///< its own, in pixels of the display
};

} // namespace platform
