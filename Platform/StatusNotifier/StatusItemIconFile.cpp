// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusNotifier/StatusItemIconFile.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QDir>
#include <QImage>
#include <QSaveFile>

namespace platform {

namespace {

QByteArray pngOf(const QImage& image) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

QString fileName(const QByteArray& content, const QString& prefix) {
    const QByteArray hash = QCryptographicHash::hash(content, QCryptographicHash::Sha1);
    return prefix + QLatin1Char('-') + QString::fromLatin1(hash.toHex().first(12)) +
           QStringLiteral(".png");
}

/// Whole or not at all: a panel may read the file at any moment.
bool write(const QByteArray& content, const QString& path) {
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() &&
           file.commit();
}

} // namespace

QString StatusItemIconFile::pathOf(const QImage& image, const QString& directory,
                                   const QString& prefix) {
    const QByteArray content = pngOf(image);
    const QDir folder(directory);
    QString path = folder.absoluteFilePath(fileName(content, prefix));
    if (QFileInfo(path).size() == content.size())
        return path;
    return folder.mkpath(QStringLiteral(".")) && write(content, path) ? path : QString();
}

} // namespace platform
