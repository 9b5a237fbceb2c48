// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/PlatformError.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace platform {

/// A file or directory could not be read, made or written. The description is the system's.
class FileError : public PlatformError {
public:
    using PlatformError::PlatformError;
};

/// Where a program keeps its files, and writing that leaves either the old file or the new one.
class FileManager {
public:
    /// @param applicationSupport the user's directory for the data of all programs
    /// @param temporary          the directory for files that need not last
    FileManager(QString applicationSupport, QString temporary);

    /// The directories of this user's session: `$XDG_DATA_HOME` (or its default) and the system's
    /// temporary directory.
    static FileManager standard();

    const QString& applicationSupportDirectory() const { return applicationSupport_; }
    const QString& temporaryDirectory() const { return temporary_; }

    /// Makes a directory and those above it, readable by the user alone where they are new.
    /// @throws FileError where it neither exists nor can be made
    static void createDirectory(const QString& path);

    /// The whole content; absent where there is no such file or it cannot be read.
    static std::optional<QByteArray> contents(const QString& path);

    /// Whether there certainly is nothing with this name. A dangling link is something.
    static bool isMissing(const QString& path);

    /// Gives a file another name in the same directory; replaces a file that has it.
    /// @throws FileError, with both as they were
    static void rename(const QString& from, const QString& to);

    /// Removes a file, or a link to one. Does nothing where there is none.
    /// @throws FileError
    static void remove(const QString& path);

    /// Replaces the file by one with this content, or leaves it untouched and throws. What is there
    /// after a crash or a power cut is the old file or the new one, whole. Makes the directory anew
    /// where it has gone.
    /// @throws FileError
    static void writeAtomically(const QByteArray& data, const QString& path);

private:
    QString applicationSupport_;
    QString temporary_;
};

} // namespace platform
