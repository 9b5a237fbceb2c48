// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QRect>

namespace platform {

/// Follows how much of its screen the window takes that the user works in. Without an X display
/// there is none. Lives on the GUI thread.
class ActiveWindowWatch final : public QObject, private QAbstractNativeEventFilter {
    Q_OBJECT

public:
    explicit ActiveWindowWatch(QObject* parent = nullptr);
    ~ActiveWindowWatch() override;

    /// Whether it fills the whole screen where `point` is, in global device-independent
    /// coordinates.
    bool fills(QPoint point) const;

    /// Whether it is maximised there.
    bool isMaximized(QPoint point) const;

Q_SIGNALS:
    /// Emitted from the event loop, never while an event of the display is being handled.
    void changed();

private:
    bool nativeEventFilter(const QByteArray& type, void* event, qintptr* result) override;
    void refresh();

    /// What is known of it.
    struct Extent {
        bool isFull = false; ///< fills its screen
        bool isMaximized = false;
        QPoint corner = {}; ///< its own, in pixels of the display

        bool operator==(const Extent&) const = default;
    };

    static Extent extentOf(quint32 window);
    bool isOnScreenOf(QPoint point) const;

    quint32 active_ = 0; ///< the window that the user works in
    Extent extent_;
};

} // namespace platform
