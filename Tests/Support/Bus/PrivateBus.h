// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tests/Support/ChildProcess.h"

#include <QDBusConnection>
#include <QStringList>
#include <QTemporaryDir>

namespace test {

/// A session bus of a test's own: a dbus-daemon that ends with this object.
///
/// The environment names it as the session bus while it lives. Qt looks there only once in a
/// process, so a process with several of these uses the connections made here.
class PrivateBus {
public:
    PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;
    ~PrivateBus();

    QString address() const { return address_; }

    /// One more client. Closed with this object.
    QDBusConnection connect();

    /// Ends the daemon; every client loses its connection.
    void stop();

private:
    QString writeConfiguration() const;

    QTemporaryDir directory_;
    ChildProcess daemon_;
    QString address_;
    QStringList connections_;
};

} // namespace test
