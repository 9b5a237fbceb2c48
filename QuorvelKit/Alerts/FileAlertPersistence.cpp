// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Alerts/FileAlertPersistence.h"

#include "Platform/JSON/StoredArray.h"

namespace quorvel {

using platform::FileManager;

QString FileAlertPersistence::standardLocation(const FileManager& files) {
    const QString directory = files.applicationSupportDirectory() + QStringLiteral("/Quorvel");
    FileManager::createDirectory(directory);
    return directory + QStringLiteral("/alerts.json");
}

QString FileAlertPersistence::temporaryLocation(const FileManager& files) {
    return files.temporaryDirectory() + QStringLiteral("/quorvel-alerts.json");
}

std::vector<AlertRule> FileAlertPersistence::load() {
    const auto data = file_.read();
    if (!data)
        return {};
    auto stored = platform::decodeStoredArray<AlertRule>(*data, &AlertRule::decode);
    if (!stored.isComplete)
        file_.keepOnNextWrite();
    return std::move(stored.elements);
}

void FileAlertPersistence::save(const std::vector<AlertRule>& rules) {
    file_.write(platform::encodeArray(rules));
}

} // namespace quorvel
