// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/Services/LaunchAtLoginManaging.h"

#include <QObject>
#include <QProperty>
#include <QString>

#include <memory>
#include <optional>

namespace quorvel {

/// What the switch for launch at login shows and does. Owned by the application model; main thread.
///
/// Reads the service when it is made and after a change that failed; a change that is made
/// elsewhere meanwhile is not noticed.
class LaunchAtLoginController : public QObject {
    Q_OBJECT

public:
    explicit LaunchAtLoginController(std::unique_ptr<LaunchAtLoginManaging> service);

    bool isEnabled() const { return isEnabled_; }

    /// Why the last change failed, for the user; absent after one that did not.
    const std::optional<QString>& lastErrorMessage() const { return lastErrorMessage_; }

    /// Changes it, unless it is so already. After a failure the switch shows how it really is.
    void setEnabled(bool enabled);

Q_SIGNALS:
    void isEnabledChanged();
    void lastErrorMessageChanged();

private:
    std::unique_ptr<LaunchAtLoginManaging> service_;
    Q_OBJECT_BINDABLE_PROPERTY(LaunchAtLoginController, bool, isEnabled_,
                               &LaunchAtLoginController::isEnabledChanged)
    Q_OBJECT_BINDABLE_PROPERTY(LaunchAtLoginController, std::optional<QString>, lastErrorMessage_,
                               &LaunchAtLoginController::lastErrorMessageChanged)
};

} // namespace quorvel
