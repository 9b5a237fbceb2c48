// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractNativeEventFilter>
#include <QColor>
#include <QObject>
#include <QString>

#include <optional>

namespace platform {

/// The tray of a panel on the X display, into which programs may dock a window. Lives on the GUI
/// thread; without an X display there never is one.
class SystemTray final : public QObject, private QAbstractNativeEventFilter {
    Q_OBJECT

public:
    SystemTray();
    ~SystemTray() override;

    /// The window to which requests go; 0 where there is no tray.
    quint32 manager() const { return manager_; }

    /// The name of the panel's process; empty where it does not tell.
    QString process() const;

    /// Whether what is docked stands side by side. Trays that do not tell lie like that.
    bool isHorizontal() const;

    /// Whether it lets the panel shine through translucent windows.
    bool isTranslucent() const;

    /// What text in the tray is to be painted in; absent where it does not tell.
    std::optional<QColor> textColor() const;

    /// Asks for `window` to be taken into the tray, which it is somewhat later. There must be one.
    void dock(quint32 window) const;

Q_SIGNALS:
    /// The tray has come, gone, or been replaced by another. Emitted from the event loop, never
    /// while an event of the display is being handled; so is the other.
    void managerChanged();

    /// It may tell something else of itself.
    void changed();

private:
    bool nativeEventFilter(const QByteArray& type, void* event, qintptr* result) override;
    void findManager();

    quint32 manager_ = 0;
};

} // namespace platform
