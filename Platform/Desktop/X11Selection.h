// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

namespace platform {

/// Follows who owns a selection of the X display, which is how its managers (of the tray, of
/// compositing) make themselves known. Without an X display nobody ever does. Lives on the GUI
/// thread.
class X11Selection final : public QObject, private QAbstractNativeEventFilter {
    Q_OBJECT

public:
    /// @param name a literal
    explicit X11Selection(const char* name, QObject* parent = nullptr);
    ~X11Selection() override;

    /// The owner's window; 0 where there is none.
    quint32 owner() const { return owner_; }

Q_SIGNALS:
    /// Emitted from the event loop, never while an event of the display is being handled.
    void ownerChanged();

    /// A property of the owner's window has changed.
    void propertyChanged();

private:
    bool nativeEventFilter(const QByteArray& type, void* event, qintptr* result) override;
    void refreshSoon();
    void refresh();

    const char* name_;
    quint32 owner_ = 0;
};

} // namespace platform
