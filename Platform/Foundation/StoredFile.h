// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <utility>

namespace platform {

/// A file of the user's that is read at the start and replaced as a whole at each change.
///
/// Where its content was not understood, writing must not destroy what may be the only copy: the
/// first write then puts the old file aside. One such file is kept, the newest.
class StoredFile {
public:
    explicit StoredFile(QString path) : path_(std::move(path)) {}

    /// Where the old file is put: beside it, with ".damaged" behind its name.
    QString damagedPath() const { return path_ + QStringLiteral(".damaged"); }

    /// The whole content; absent where there is no file, and where there is one that cannot be
    /// read, which is then kept on the next write.
    std::optional<QByteArray> read();

    /// Has the next write put the old file aside. To be called by a reader whom the content does
    /// not make sense to as a whole.
    void keepOnNextWrite() { isToBeKept_ = true; }

    /// Whether the next write puts the old file aside.
    bool isToBeKept() const { return isToBeKept_; }

    /// Replaces the file. Where it is to be kept and cannot be, nothing is written.
    /// @throws FileError; the old content is then still there, in its place or put aside
    void write(const QByteArray& data);

private:
    void keep();

    QString path_;
    bool isToBeKept_ = false;
};

} // namespace platform
