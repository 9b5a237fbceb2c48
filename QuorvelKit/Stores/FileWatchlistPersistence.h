// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/StoredFile.h"
#include "QuorvelKit/Stores/WatchlistPersistence.h"

#include <QString>

#include <utility>

namespace quorvel {

/// The watchlist in a JSON file: an array of items. An older form, an array of bare symbols, is
/// still read. Entries that make no sense are skipped; a file that makes none, or is missing, is an
/// empty list. A file of which anything was skipped is kept beside the new one, with ".damaged"
/// behind its name, when it is first replaced.
class FileWatchlistPersistence final : public WatchlistPersistence {
public:
    explicit FileWatchlistPersistence(QString fileURL) : file_(std::move(fileURL)) {}

    /// The file's place in the user's application-support directory; the directory is made.
    /// @throws platform::FileError where it can be neither found nor made
    static QString standardLocation(const platform::FileManager& files);

    /// The file's place where the standard one cannot be had.
    static QString temporaryLocation(const platform::FileManager& files);

    /// Never throws.
    std::vector<WatchlistItem> load() override;

    /// Leaves the old file whole where it fails. @throws platform::FileError
    void save(const std::vector<WatchlistItem>& items) override;

    bool lostEntries() const override { return lostEntries_; }

private:
    platform::StoredFile file_;
    bool lostEntries_ = false;
};

} // namespace quorvel
