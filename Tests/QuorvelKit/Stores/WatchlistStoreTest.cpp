// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Stores/WatchlistStore.h"

#include "Platform/Foundation/FileManager.h"
#include "QuorvelKit/Stores/FileWatchlistPersistence.h"
#include "Tests/QuorvelKit/Stores/ScriptedPersistence.h"
#include "Tests/Support/Cases.h"
#include "Tests/Support/MarketSamples.h"

#include <QSignalSpy>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

using namespace quorvel;
using namespace test;
using testing::ElementsAre;

namespace {

using Persistence = ScriptedPersistence<WatchlistPersistence, WatchlistItem>;

class Watchlist : public testing::Test {
protected:
    StoredState<WatchlistItem> state_{.stored = {{ada, false}, {btc, false}, {eth, false}}};
    WatchlistStore store_{std::make_unique<Persistence>(state_)};
};

} // namespace

TEST_F(Watchlist, SavesEveryEditThatChangesIt) {
    store_.add(btc);
    store_.remove(sol);
    store_.togglePinned(sol);
    store_.moveUp(0);
    store_.moveUp(3);
    store_.moveUp(-1);
    store_.moveDown(2);
    store_.moveDown(-1);
    EXPECT_EQ(state_.saves, 0);
    store_.togglePinned(btc);
    EXPECT_TRUE(store_.isPinned(btc));
    EXPECT_THAT(store_.pinnedSymbols(), ElementsAre(btc));
    store_.togglePinned(btc);
    store_.add(sol);
    store_.remove(ada);
    EXPECT_EQ(state_.saves, 4);
    EXPECT_EQ(state_.stored, store_.items());
    EXPECT_THAT(store_.symbols(), ElementsAre(btc, eth, sol));
    EXPECT_EQ(store_.subscriptionSet(), (SymbolSet{btc, eth, sol}));
}

TEST_F(Watchlist, MovesAsListsDo) {
    store_.moveDown(0);
    EXPECT_THAT(store_.symbols(), ElementsAre(btc, ada, eth));
    store_.moveUp(2);
    EXPECT_THAT(store_.symbols(), ElementsAre(btc, eth, ada));
    store_.move({0}, 3);
    EXPECT_THAT(store_.symbols(), ElementsAre(eth, ada, btc));
    store_.move({0, 2}, 1);
    EXPECT_THAT(store_.symbols(), ElementsAre(eth, btc, ada));
}

TEST_F(Watchlist, KeepsAnEditThatCannotBeSavedAndSaysWhy) {
    QSignalSpy spy(&store_, &WatchlistStore::lastPersistErrorChanged);
    state_.failsToSave = true;
    store_.remove(ada);
    store_.remove(btc);
    EXPECT_EQ(store_.lastPersistError(),
              QStringLiteral("Couldn't save watchlist: No space left on device"));
    EXPECT_THAT(store_.symbols(), ElementsAre(eth));
    EXPECT_EQ(spy.count(), 1);
    state_.failsToSave = false;
    store_.add(ada);
    EXPECT_EQ(store_.lastPersistError(), std::nullopt);
    EXPECT_EQ(spy.count(), 2);
}

TEST_F(Watchlist, IsEmptyWhenItCannotBeLoaded) {
    state_.failsToLoad = true;
    const WatchlistStore store(std::make_unique<Persistence>(state_));
    EXPECT_TRUE(store.items().empty());
    EXPECT_EQ(store.lastPersistError(), std::nullopt);
}

TEST(FileWatchlistPersistence, LoadsWhatMakesSense) {
    const std::string pinnedBTC =
        R"({"symbol":{"base":"BTC","quote":"USDT"},"isPinnedToStatusBar":true})";
    const std::string twoPinned = pinnedBTC + "," + pinnedBTC;
    const WatchlistItem pinned{btc, true};
    struct File {
        std::string content;
        std::vector<WatchlistItem> items;
    };
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("watchlist.json"));
    for (const auto& [content, items] :
         cases(File{"", {}}, File{"[]", {}}, File{"rubbish", {}}, File{pinnedBTC, {}},
               File{"[" + pinnedBTC + ",", {}}, File{"[" + pinnedBTC + "][]", {}},
               File{"[" + twoPinned + "]", {pinned, pinned}},
               File{R"([{"symbol":{"base":"ETH","quote":"USDT"}},)" + pinnedBTC + "]", {pinned}},
               File{R"([{"symbol":{"base":"btc","quote":"USDT"},"isPinnedToStatusBar":true},)" +
                        pinnedBTC + "]",
                    {pinned}},
               File{R"([null,7,"x",[],{"symbol":"BTC","isPinnedToStatusBar":1},)" + pinnedBTC + "]",
                    {pinned}},
               // The older form.
               File{R"([{"base":"BTC","quote":"USDT"},{"base":"x/y","quote":"USDT"},)"
                    R"({"base":"１２","quote":"USDT"}])",
                    {{btc, false}, {{"１２", "USDT"}, false}}})) {
        platform::FileManager::writeAtomically(QByteArray::fromStdString(content), path);
        EXPECT_EQ(FileWatchlistPersistence(path).load(), items) << content;
    }
}

TEST(FileWatchlistPersistence, WritesTheCurrentFormAndReadsItBack) {
    const QTemporaryDir directory;
    const platform::FileManager files(directory.filePath(QStringLiteral("share")),
                                      directory.path());
    const QString path = FileWatchlistPersistence::standardLocation(files);
    EXPECT_EQ(path, directory.filePath(QStringLiteral("share/Quorvel/watchlist.json")));
    FileWatchlistPersistence persistence(path);
    EXPECT_TRUE(persistence.load().empty());
    const std::vector<WatchlistItem> items{{btc, true}, {eth, false}};
    persistence.save(items);
    EXPECT_EQ(platform::FileManager::contents(path),
              R"([{"symbol":{"base":"BTC","quote":"USDT"},"isPinnedToStatusBar":true},)"
              R"({"symbol":{"base":"ETH","quote":"USDT"},"isPinnedToStatusBar":false}])");
    EXPECT_EQ(persistence.load(), items);
}
