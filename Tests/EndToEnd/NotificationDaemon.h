// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tests/Support/BusPeer.h"
#include "Tests/Support/ChildProcess.h"

#include <QTemporaryDir>

#include <string>
#include <vector>

namespace test {

/// A real notification daemon on the display and the session bus that the environment names when it
/// starts.
class NotificationDaemon {
public:
    /// @param bus a connection to the same bus, to ask the daemon over
    explicit NotificationDaemon(const QDBusConnection& bus);

    /// How many notifications its window shows now.
    int displayedCount();

    /// Every notification that it has shown, in the order of their arrival: the title, a bar and
    /// the body. Takes those that are still shown off the screen.
    std::vector<std::string> takeShown();

private:
    QDBusMessage call(const char* interface, const char* member, const QVariantList& arguments);

    QTemporaryDir directory_;
    ChildProcess process_;
    BusPeer peer_;
};

} // namespace test
