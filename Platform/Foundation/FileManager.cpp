// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Foundation/FileManager.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

/// A rename lasts only once the directory that records it has reached the disk. File systems that
/// cannot do this are left to their own ways.
void synchronizeDirectory(const QString& path) {
    const int directory =
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (directory < 0)
        return;
    ::fsync(directory);
    ::close(directory);
}

} // namespace

FileManager::FileManager(QString applicationSupport, QString temporary)
    : applicationSupport_(std::move(applicationSupport)), temporary_(std::move(temporary)) {}

FileManager FileManager::standard() {
    return {QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation),
            QDir::tempPath()};
}

void FileManager::createDirectory(const QString& path) {
    if (path.isEmpty())
        throw FileError(qt_error_string(ENOENT));
    const QString parent = QFileInfo(path).path();
    if (!QFileInfo::exists(parent) && parent != path)
        createDirectory(parent);
    constexpr mode_t ownerOnly = 0700;
    if (::mkdir(QFile::encodeName(path).constData(), ownerOnly) == 0)
        return;
    const int error = errno;
    if (!QFileInfo(path).isDir())
        throw FileError(qt_error_string(error));
}

std::optional<QByteArray> FileManager::contents(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    QByteArray data = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return std::nullopt;
    return data;
}

bool FileManager::isMissing(const QString& path) {
    struct stat status{};
    return ::lstat(QFile::encodeName(path).constData(), &status) != 0 &&
           (errno == ENOENT || errno == ENOTDIR);
}

void FileManager::rename(const QString& from, const QString& to) {
    if (::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0)
        throw FileError(qt_error_string(errno));
    synchronizeDirectory(QFileInfo(to).path());
}

void FileManager::remove(const QString& path) {
    if (::unlink(QFile::encodeName(path).constData()) == 0)
        synchronizeDirectory(QFileInfo(path).path());
    else if (const int error = errno; !isMissing(path))
        throw FileError(qt_error_string(error));
}

void FileManager::writeAtomically(const QByteArray& data, const QString& path) {
    const QString directory = QFileInfo(path).path();
    createDirectory(directory);
    QSaveFile file(path);
    // What is small waits in a buffer, and commit() takes no notice of a failure to empty it.
    if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size() || !file.flush() ||
        !file.commit())
        throw FileError(file.errorString());
    synchronizeDirectory(directory);
}

} // namespace platform
