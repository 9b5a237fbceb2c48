// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Foundation/StoredFile.h"

#include "Platform/Foundation/FileManager.h"

namespace platform {

std::optional<QByteArray> StoredFile::read() {
    auto data = FileManager::contents(path_);
    isToBeKept_ = !data && !FileManager::isMissing(path_);
    return data;
}

void StoredFile::write(const QByteArray& data) {
    if (isToBeKept_)
        keep();
    FileManager::writeAtomically(data, path_);
}

void StoredFile::keep() {
    // A copy leaves the file in its place, should the write that follows fail.
    if (const auto data = FileManager::contents(path_))
        FileManager::writeAtomically(*data, damagedPath());
    else if (!FileManager::isMissing(path_))
        FileManager::rename(path_, damagedPath());
    isToBeKept_ = false;
}

} // namespace platform
