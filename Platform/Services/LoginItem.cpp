// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Services/LoginItem.h"

#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/StoredFile.h"
#include "Platform/Services/DesktopEntry.h"

#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <array>
#include <utility>

namespace platform {

namespace {

/// What desktops set to false where the user switches an entry off, instead of hiding it.
constexpr std::array<QByteArrayView, 2> desktopSwitches{"X-GNOME-Autostart-enabled",
                                                        "X-MATE-Autostart-enabled"};

bool is(const DesktopEntry& entry, QByteArrayView key, QByteArrayView value) {
    return entry.value(key).value_or(QByteArray()).compare(value, Qt::CaseInsensitive) == 0;
}

/// Whether the entry is for a program that is not there. One that names none may be anything.
bool hasLostItsProgram(const DesktopEntry& entry) {
    const auto program = entry.value("TryExec");
    return program && QStandardPaths::findExecutable(DesktopEntry::unescaped(*program)).isEmpty();
}

/// Whether the command is more than the start of the program, so that somebody wrote it by hand.
bool hasCommandOfItsOwn(const DesktopEntry& entry) {
    const auto command = entry.value("Exec");
    if (!command || command->isEmpty() || hasLostItsProgram(entry))
        return false;
    const auto program = entry.value("TryExec");
    return !program || *command != DesktopEntry::commandLine(DesktopEntry::unescaped(*program));
}

} // namespace

LoginItem::LoginItem(Identity identity, const QString& directory)
    : identity_(std::move(identity)),
      path_(directory + u'/' + identity_.id + QStringLiteral(".desktop")) {}

QString LoginItem::standardDirectory() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/autostart");
}

bool LoginItem::isEnabled() const {
    const auto text = FileManager::contents(path_);
    if (!text)
        return false;
    const DesktopEntry entry(*text);
    return !entry.value("Exec").value_or(QByteArray()).isEmpty() && !is(entry, "Hidden", "true") &&
           std::ranges::none_of(desktopSwitches,
                                [&](QByteArrayView key) { return is(entry, key, "false"); }) &&
           !hasLostItsProgram(entry);
}

void LoginItem::setEnabled(bool enabled) {
    if (enabled)
        enable();
    else
        disable();
}

void LoginItem::enable() {
    StoredFile file(path_);
    DesktopEntry entry(file.read().value_or(QByteArray()));
    switchOn(entry);
    file.write(entry.text());
}

void LoginItem::disable() {
    const auto text = FileManager::contents(path_);
    DesktopEntry own{QByteArray()};
    switchOn(own);
    DesktopEntry entry(text.value_or(QByteArray()));
    switchOn(entry);
    // What a link leads to is somebody else's.
    if (!text || entry.text() == own.text() || QFileInfo(path_).isSymbolicLink()) {
        FileManager::remove(path_);
        return;
    }
    entry = DesktopEntry(*text);
    entry.set("Hidden", "true");
    FileManager::writeAtomically(entry.text(), path_);
}

void LoginItem::switchOn(DesktopEntry& entry) const {
    const auto setIfAbsent = [&](QByteArrayView key, const QString& value) {
        if (!entry.value(key))
            entry.set(key, DesktopEntry::escaped(value));
    };
    setIfAbsent("Type", QStringLiteral("Application"));
    setIfAbsent("Name", identity_.name);
    setIfAbsent("Icon", identity_.id);
    if (!hasCommandOfItsOwn(entry)) {
        entry.set("Exec", DesktopEntry::commandLine(identity_.executable));
        entry.set("TryExec", DesktopEntry::escaped(identity_.executable));
    }
    entry.remove("Hidden");
    for (const QByteArrayView key : desktopSwitches)
        entry.remove(key);
}

} // namespace platform
