#include "Platform/Foundation/FileManager.h"
#include "QuorvelKit/Alerts/AlertStore.h"
#include "QuorvelKit/Alerts/FileAlertPersistence.h"
#include "QuorvelKit/Stores/FileWatchlistPersistence.h"
#include "QuorvelKit/Stores/WatchlistStore.h"
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
const QByteArray rule =
    R"({"id":"9B1DEB4D-3B7D-4BAD-9BDD-2B0D7B3DCB6D","symbol":{"base":"ETH","quote":"USDT"},)"
    R"("condition":{"changeFallsBelow":{"_0":-5}},"repeatMode":{"once":{}},"isEnabled":true})";

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
    QByteArray element() const { return GetParam().element; }
    auto kept() const { return FileManager::contents(damaged_); }
    auto stored() const { return FileManager::contents(path_); }

    QTemporaryDir directory_;
    QString path_ = directory_.filePath(QStringLiteral("list.json"));
    QString damaged_ = directory_.filePath(QStringLiteral("list.json.damaged"));
};

} // namespace

TEST_P(DamagedFile, IsKeptBesideTheFirstSave) {
    for (const QByteArray& damage :
         {QByteArray("rubbish"), QByteArray(), QByteArray("{}"), QByteArray("\xff\xfe[]"),
          "[" + element(), "[" + element() + "]]", "[" + element() + ",7]", QByteArray("[null]"),
          "[{}," + element() + "]"}) {
        write(damage);
        runProgram(0);
        EXPECT_EQ(stored(), damage) << "without a save nothing changes";
        runProgram();
        EXPECT_EQ(kept(), damage);
        EXPECT_EQ(stored(), QByteArray("[]"));
    }
}

TEST_P(DamagedFile, IsNotSeenInASoundOrMissingOne) {
    for (const QByteArray& sound : {QByteArray("[]"), QByteArray(" [ ] "), "[" + element() + "]",
                                    "[" + element() + "," + element() + "]"}) {
        write(sound);
        runProgram();
        EXPECT_EQ(stored(), QByteArray("[]"));
        EXPECT_FALSE(QFileInfo::exists(damaged_)) << sound.toStdString();
    }
    QFile::remove(path_);
    runProgram();
    EXPECT_EQ(stored(), QByteArray("[]"));
    EXPECT_FALSE(QFileInfo::exists(damaged_));
}

TEST_P(DamagedFile, IsReplacedByANewerOneOnly) {
    write("first");
    runProgram(3);
    EXPECT_EQ(kept(), QByteArray("first"));
    runProgram();
    EXPECT_EQ(kept(), QByteArray("first"));
    write("second");
    runProgram();
    EXPECT_EQ(kept(), QByteArray("second"));
    EXPECT_EQ(QDir(directory_.path()).entryList(QDir::Files).size(), 2);
}

TEST_P(DamagedFile, IsMovedAsideWhereItCannotBeRead) {
    write("older damage");
    runProgram();
    QFile::remove(path_);
    // A link to itself: a name that is there and that nobody, root included, can open.
    ASSERT_TRUE(QFile::link(path_, path_));
    runProgram();
    EXPECT_EQ(stored(), QByteArray("[]"));
    EXPECT_TRUE(QFileInfo(damaged_).isSymLink());
    runProgram();
    EXPECT_TRUE(QFileInfo(damaged_).isSymLink());
}

TEST_P(DamagedFile, IsCopiedWhereItCanBeReadAgainAtTheSave) {
    ASSERT_TRUE(QFile::link(path_, path_));
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
    runProgram();
    EXPECT_EQ(kept(), damage);

    QFile::remove(path_);
    QFile::remove(damaged_);
    ASSERT_TRUE(QFile::link(path_, path_));
    ASSERT_TRUE(QDir(directory_.path()).mkdir(QStringLiteral("list.json.damaged")));
    EXPECT_THROW(runProgram(), FileError);
    EXPECT_TRUE(QFileInfo(path_).isSymLink());
}

INSTANTIATE_TEST_SUITE_P(Kit, DamagedFile,
                         testing::Values(Kind{"Watchlist", item, run<FileWatchlistPersistence>},
                                         Kind{"Alerts", rule, run<FileAlertPersistence>}),
                         [](const auto& info) { return info.param.name; });

namespace {

/// A profile with both files, and a run that loads them as the program does.
class DamagedProfile : public testing::Test {
protected:
    DamagedProfile() { FileManager::writeAtomically("[" + rule + "]", alerts_); }

    /// @returns whether the watchlist was taken as complete
    bool dropOrphans() const {
        const WatchlistStore watchlist(std::make_unique<FileWatchlistPersistence>(watchlist_));
        AlertStore alerts(std::make_unique<FileAlertPersistence>(alerts_));
        alerts.removeOrphans(watchlist.subscriptionSet(), watchlist.isLoadComplete());
        EXPECT_EQ(alerts.lastPersistError(), std::nullopt);
        return watchlist.isLoadComplete();
    }

    QTemporaryDir directory_;
    QString watchlist_ = directory_.filePath(QStringLiteral("watchlist.json"));
    QString alerts_ = directory_.filePath(QStringLiteral("alerts.json"));
    QString keptAlerts_ = directory_.filePath(QStringLiteral("alerts.json.damaged"));
};

} // namespace

TEST_F(DamagedProfile, KeepsTheRulesThatADamagedWatchlistCosts) {
    FileManager::writeAtomically("[" + item + ",7]", watchlist_);
    EXPECT_FALSE(dropOrphans());
    EXPECT_EQ(FileManager::contents(alerts_), QByteArray("[]"));
    EXPECT_EQ(FileManager::contents(keptAlerts_), "[" + rule + "]");
}

TEST_F(DamagedProfile, KeepsTheRulesOfAnUnreadableWatchlist) {
    ASSERT_TRUE(QFile::link(watchlist_, watchlist_));
    EXPECT_FALSE(dropOrphans());
    EXPECT_EQ(FileManager::contents(keptAlerts_), "[" + rule + "]");
}

TEST_F(DamagedProfile, DropsOrphansForGoodWhereTheWatchlistIsWhole) {
    for (const QByteArray& whole : {"[" + item + "]", "[" + olderItem + "]", QByteArray("[]")}) {
        FileManager::writeAtomically(whole, watchlist_);
        FileManager::writeAtomically("[" + rule + "]", alerts_);
        EXPECT_TRUE(dropOrphans());
        EXPECT_EQ(FileManager::contents(alerts_), QByteArray("[]"));
    }
    QFile::remove(watchlist_);
    EXPECT_TRUE(dropOrphans());
    EXPECT_FALSE(QFileInfo::exists(keptAlerts_));
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
