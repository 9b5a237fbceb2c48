// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace platform {

class DesktopEntry;

/// Whether a program is started when the user logs in: its entry in the session's autostart
/// directory, `$XDG_CONFIG_HOME/autostart`, as the Desktop Application Autostart Specification 0.5
/// has it.
///
/// The user and the desktop's own settings may edit the entry. What they wrote stays: other keys,
/// other groups, comments, and a command that does more than start the program. An entry in which
/// there is nothing of theirs is removed when it is switched off, any other is hidden. Entries for
/// all users of the machine are not looked at.
///
/// Keeps no state: reads the file at each call. For one thread.
class LoginItem {
public:
    struct Identity {
        QString id;         ///< names the file and the icon, such as "quorvel"
        QString name;       ///< what the desktop's settings show
        QString executable; ///< absolute path of the program
    };

    /// @param directory where entries are; made when the first one is
    LoginItem(Identity identity, const QString& directory);

    /// The directory of this user's session.
    static QString standardDirectory();

    /// Whether there is an entry that the desktop heeds: neither hidden nor switched off in the way
    /// of GNOME or MATE, with a command, and not for a program that has gone. One that cannot be
    /// read is none.
    bool isEnabled() const;

    /// Makes the entry, or makes it count again and start this executable; or takes it away.
    /// @throws FileError where the file cannot be written; it is then as it was
    void setEnabled(bool enabled);

private:
    void enable();
    void disable();
    void switchOn(DesktopEntry& entry) const;

    Identity identity_;
    QString path_;
};

} // namespace platform
