// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/StoredFile.h"
#include "QuorvelKit/Alerts/AlertPersistence.h"

#include <QString>

#include <utility>

namespace quorvel {

/// The alert rules in a JSON file: an array of rules. Entries that make no sense are skipped; a
/// file that makes none, or is missing, is an empty list. A file of which anything was skipped is
/// kept beside the new one, with ".damaged" behind its name, when it is first replaced.
class FileAlertPersistence final : public AlertPersistence {
public:
    explicit FileAlertPersistence(QString fileURL) : file_(std::move(fileURL)) {}

    /// The file's place in the user's application-support directory; the directory is made.
    /// @throws platform::FileError where it can be neither found nor made
    static QString standardLocation(const platform::FileManager& files);

    /// The file's place where the standard one cannot be had.
    static QString temporaryLocation(const platform::FileManager& files);

    /// Never throws.
    std::vector<AlertRule> load() override;

    /// Leaves the old file whole where it fails. @throws platform::FileError, and
    /// std::invalid_argument for a rule that JSON cannot hold
    void save(const std::vector<AlertRule>& rules) override;

    void keepStoredOnNextSave() override { file_.keepOnNextWrite(); }

private:
    platform::StoredFile file_;
};

} // namespace quorvel
