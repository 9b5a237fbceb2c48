// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Foundation/FileManager.h"
#include "QuorvelKit/Alerts/AlertStore.h"
#include "QuorvelKit/Alerts/FileAlertPersistence.h"
#include "QuorvelKit/Stores/FileWatchlistPersistence.h"
#include "QuorvelKit/Stores/WatchlistStore.h"
#include "Tests/QuorvelKit/Alerts/AlertSamples.h"
#include "Tests/Support/FullDisk.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>

using namespace quorvel;
using platform::FileError;
using platform::FileManager;

namespace {

const QByteArray item = R"({"symbol":{"base":"BTC","quote":"USDT"},"isPinnedToStatusBar":true})";
const QByteArray olderItem = R"({"base":"BTC","quote":"USDT"})";
const QByteArray rule = QByteArray::fromStdString(test::onceETHText);

/// One of the two files: what it holds, and a run of the program that loads it.
struct Kind {
    const char* name;
    QByteArray element;
    /// Loads, does what is handed in, then saves an empty list as often as told.
    void (*run)(const QString& path, const std::function<void()>& meanwhile, int saves);
};

template <typename Persistence>
void run(const QString& path, const std::function<void()>& meanwhile, int saves) {
    Persistence persistence(path);
    persistence.load();
    meanwhile();
    for (int i = 0; i < saves; ++i)
        persistence.save({});
}

class DamagedFile : public testing::TestWithParam<Kind> {
protected:
    void write(const QByteArray& content) const { FileManager::writeAtomically(content, path_); }
    void runProgram(int saves = 1) const {
        GetParam().run(path_, [] {}, saves);
    }
    /// Puts a link to itself there: a name that nobody, root included, can open.
    void makeUnreadable() const {
        QFile::remove(path_);
        ASSERT_TRUE(QFile::link(path_, path_));
    }
    auto kept() const { return FileManager::contents(damaged_); }
    auto stored() const { return FileManager::contents(path_); }

    const QByteArray element_ = GetParam().element;
    QTemporaryDir directory_;
    QString path_ = directory_.filePath(QStringLiteral("list.json"));
    QString damaged_ = directory_.filePath(QStringLiteral("list.json.damaged"));
};

} // namespace

TEST_P(DamagedFile, IsKeptBesideTheFirstSave) {
    for (const QByteArray& damage :
         {QByteArray("rubbish"), QByteArray(), QByteArray("{}"), "[" + element_,
          "[" + element_ + ",7]", QByteArray("[null]"), "[{}," + element_ + "]"}) {
        write(damage);
        runProgram(0);
        EXPECT_EQ(stored(), damage) << "without a save nothing changes";
        runProgram(3);
        EXPECT_EQ(kept(), damage);
        EXPECT_EQ(stored(), QByteArray("[]"));
        runProgram();
        EXPECT_EQ(kept(), damage) << "a sound file replaces no damaged one";
    }
    EXPECT_EQ(QDir(directory_.path()).entryList(QDir::Files).size(), 2);
}

TEST_P(DamagedFile, IsNotSeenInASoundOrMissingOne) {
    for (const QByteArray& sound : {QByteArray(" [ ] "), "[" + element_ + "," + element_ + "]"}) {
        write(sound);
        runProgram();
        EXPECT_EQ(stored(), QByteArray("[]"));
    }
    QFile::remove(path_);
    runProgram();
    EXPECT_EQ(stored(), QByteArray("[]"));
    EXPECT_FALSE(QFileInfo::exists(damaged_));
}

TEST_P(DamagedFile, IsMovedAsideWhereItCannotBeRead) {
    write("older damage");
    runProgram();
    makeUnreadable();
    runProgram();
    EXPECT_EQ(stored(), QByteArray("[]"));
    EXPECT_TRUE(QFileInfo(damaged_).isSymLink());
}

TEST_P(DamagedFile, IsCopiedWhereItCanBeReadAgainAtTheSave) {
    makeUnreadable();
    const auto repair = [this] {
        QFile::remove(path_);
        write("readable again");
    };
    GetParam().run(path_, repair, 1);
    EXPECT_EQ(kept(), QByteArray("readable again"));
}

TEST_P(DamagedFile, IsNotOverwrittenWhereItCannotBeKept) {
    const QByteArray damage(5000, 'x');
    write(damage);
    {
        const test::FullDisk full(1000);
        EXPECT_THROW(runProgram(), FileError);
    }
    EXPECT_EQ(stored(), damage);
    EXPECT_FALSE(QFileInfo::exists(damaged_));

    makeUnreadable();
    ASSERT_TRUE(QDir(directory_.path()).mkdir(QStringLiteral("list.json.damaged")));
    EXPECT_THROW(runProgram(), FileError);
    EXPECT_TRUE(QFileInfo(path_).isSymLink());
}

INSTANTIATE_TEST_SUITE_P(Kit, DamagedFile,
                         testing::Values(Kind{"Watchlist", item, run<FileWatchlistPersistence>},
                                         Kind{"Alerts", rule, run<FileAlertPersistence>}),
                         [](const auto& info) { return info.param.name; });

TEST(DamagedProfile, KeepsTheRulesThatOnlyADamagedWatchlistCosts) {
    const QTemporaryDir directory;
    const QString watchlistPath = directory.filePath(QStringLiteral("watchlist.json"));
    const QString alertsPath = directory.filePath(QStringLiteral("alerts.json"));
    const QString keptPath = directory.filePath(QStringLiteral("alerts.json.damaged"));
    const auto expectKept = [&](bool isKept) {
        FileManager::writeAtomically("[" + rule + "]", alertsPath);
        const WatchlistStore watchlist(std::make_unique<FileWatchlistPersistence>(watchlistPath));
        AlertStore alerts(std::make_unique<FileAlertPersistence>(alertsPath));
        alerts.removeOrphans(watchlist.subscriptionSet(), watchlist.isLoadComplete());
        EXPECT_EQ(alerts.lastPersistError(), std::nullopt);
        EXPECT_EQ(watchlist.isLoadComplete(), !isKept);
        EXPECT_EQ(FileManager::contents(alertsPath), QByteArray("[]"));
        EXPECT_EQ(FileManager::contents(keptPath).value_or("nothing"),
                  isKept ? "[" + rule + "]" : QByteArray("nothing"));
        QFile::remove(keptPath);
        QFile::remove(watchlistPath);
    };
    for (const QByteArray& whole : {"[" + item + "]", "[" + olderItem + "]", QByteArray("[]")}) {
        FileManager::writeAtomically(whole, watchlistPath);
        expectKept(false);
    }
    expectKept(false); // there is no watchlist
    FileManager::writeAtomically("[" + item + ",7]", watchlistPath);
    expectKept(true);
    ASSERT_TRUE(QFile::link(watchlistPath, watchlistPath)); // nobody can read it
    expectKept(true);
}

TEST(OlderWatchlist, IsDamagedOnlyByEntriesThatItsFormDoesNotHold) {
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("watchlist.json"));
    const QString damaged = directory.filePath(QStringLiteral("watchlist.json.damaged"));
    FileManager::writeAtomically("[" + olderItem + "]", path);
    run<FileWatchlistPersistence>(path, [] {}, 1);
    EXPECT_FALSE(QFileInfo::exists(damaged));
    // A bare pair among items of the current form is skipped, so it must be kept.
    for (const QByteArray& content : {"[" + olderItem + R"(,{"base":"x","quote":"USDT"}])",
                                      "[" + olderItem + "," + item + "]"}) {
        FileManager::writeAtomically(content, path);
        run<FileWatchlistPersistence>(path, [] {}, 1);
        EXPECT_EQ(FileManager::contents(damaged), content);
    }
}
