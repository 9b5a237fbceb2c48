#include "QuorvelKit/Stores/WatchlistStore.h"

#include "Platform/Foundation/FileManager.h"
#include "QuorvelKit/Stores/FileWatchlistPersistence.h"

#include <QSignalSpy>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

using namespace quorvel;
using testing::ElementsAre;

namespace {

const Symbol ada{"ADA", "USDT"};
const Symbol btc{"BTC", "USDT"};
const Symbol eth{"ETH", "USDT"};

class ScriptedPersistence final : public WatchlistPersistence {
public:
    struct State {
        std::vector<WatchlistItem> stored;
        int saves = 0;
        bool failsToLoad = false;
        bool failsToSave = false;
    };
    explicit ScriptedPersistence(State& state) : state_(state) {}
    std::vector<WatchlistItem> load() override {
        if (state_.failsToLoad)
            throw std::runtime_error("unreadable");
        return state_.stored;
    }
    void save(const std::vector<WatchlistItem>& items) override {
        ++state_.saves;
        if (state_.failsToSave)
            throw platform::FileError(QStringLiteral("No space left on device"));
        state_.stored = items;
    }

private:
    State& state_;
};

class Watchlist : public testing::Test {
protected:
    Watchlist() { state_.stored = {{ada, false}, {btc, false}, {eth, false}}; }

    WatchlistStore make() { return WatchlistStore(std::make_unique<ScriptedPersistence>(state_)); }

    ScriptedPersistence::State state_;
};

} // namespace

TEST_F(Watchlist, SavesEveryEditThatChangesIt) {
    auto store = make();
    store.add(btc);
    store.remove({"SOL", "USDT"});
    store.togglePinned({"SOL", "USDT"});
    store.moveUp(0);
    store.moveUp(3);
    store.moveUp(-1);
    store.moveDown(2);
    store.moveDown(-1);
    EXPECT_EQ(state_.saves, 0);
    store.togglePinned(btc);
    EXPECT_TRUE(store.isPinned(btc));
    EXPECT_THAT(store.pinnedSymbols(), ElementsAre(btc));
    store.togglePinned(btc);
    store.add({"SOL", "USDT"});
    store.remove(ada);
    EXPECT_EQ(state_.saves, 4);
    EXPECT_EQ(state_.stored, store.items());
    EXPECT_THAT(store.symbols(), ElementsAre(btc, eth, Symbol("SOL", "USDT")));
    EXPECT_EQ(store.subscriptionSet().size(), 3u);
}

TEST_F(Watchlist, MovesAsListsDo) {
    auto down = make();
    down.moveDown(0);
    EXPECT_THAT(down.symbols(), ElementsAre(btc, ada, eth));
    state_.stored = {{ada, false}, {btc, false}, {eth, false}};
    auto up = make();
    up.moveUp(2);
    EXPECT_THAT(up.symbols(), ElementsAre(ada, eth, btc));
    state_.stored = {{ada, false}, {btc, false}, {eth, false}};
    auto toEnd = make();
    toEnd.move({0}, 3);
    EXPECT_THAT(toEnd.symbols(), ElementsAre(btc, eth, ada));
    toEnd.move({0, 2}, 1);
    EXPECT_THAT(toEnd.symbols(), ElementsAre(btc, ada, eth));
}

TEST_F(Watchlist, KeepsAnEditThatCannotBeSavedAndSaysWhy) {
    auto store = make();
    QSignalSpy spy(&store, &WatchlistStore::lastPersistErrorChanged);
    state_.failsToSave = true;
    store.remove(ada);
    store.remove(btc);
    EXPECT_EQ(store.lastPersistError(),
              QStringLiteral("Couldn't save watchlist: No space left on device"));
    EXPECT_THAT(store.symbols(), ElementsAre(eth));
    EXPECT_EQ(spy.count(), 1);
    state_.failsToSave = false;
    store.add(ada);
    EXPECT_EQ(store.lastPersistError(), std::nullopt);
    EXPECT_EQ(spy.count(), 2);
}

TEST_F(Watchlist, IsEmptyWhenItCannotBeLoaded) {
    state_.failsToLoad = true;
    const auto store = make();
    EXPECT_TRUE(store.items().empty());
    EXPECT_EQ(store.lastPersistError(), std::nullopt);
}

namespace {

struct File {
    const char* name;
    QByteArray content;
    std::vector<WatchlistItem> items;
};

class WatchlistFile : public testing::TestWithParam<File> {};

const QByteArray pinnedBTC =
    R"({"symbol":{"base":"BTC","quote":"USDT"},"isPinnedToStatusBar":true})";
const WatchlistItem pinned{btc, true};

} // namespace

TEST_P(WatchlistFile, LoadsWhatMakesSense) {
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("watchlist.json"));
    platform::FileManager::writeAtomically(GetParam().content, path);
    EXPECT_EQ(FileWatchlistPersistence(path).load(), GetParam().items);
}

INSTANTIATE_TEST_SUITE_P(
    FileWatchlistPersistence, WatchlistFile,
    testing::Values(
        File{"Empty", "", {}}, File{"EmptyArray", "[]", {}}, File{"NotJSON", "rubbish", {}},
        File{"NotAnArray", pinnedBTC, {}}, File{"One", "[" + pinnedBTC + "]", {pinned}},
        File{"Truncated", "[" + pinnedBTC + ",", {}},
        File{"SecondDocument", "[" + pinnedBTC + "][]", {}},
        File{"ByteOrderMark", "\xef\xbb\xbf[" + pinnedBTC + "]", {}},
        File{"Duplicates", "[" + pinnedBTC + "," + pinnedBTC + "]", {pinned, pinned}},
        File{"WithoutPin",
             R"([{"symbol":{"base":"ETH","quote":"USDT"}},)" + pinnedBTC + "]",
             {pinned}},
        File{"LowerCase",
             R"([{"symbol":{"base":"btc","quote":"USDT"},"isPinnedToStatusBar":true},)" +
                 pinnedBTC + "]",
             {pinned}},
        File{"WrongTypes",
             R"([null,7,"x",[],{"symbol":"BTC","isPinnedToStatusBar":1},)" + pinnedBTC + "]",
             {pinned}},
        File{
            "OlderForm",
            R"([{"base":"BTC","quote":"USDT"},{"base":"x/y","quote":"USDT"},{"base":"ETH","quote":"USDT"}])",
            {{btc, false}, {eth, false}}},
        File{
            "OtherScripts",
            R"([{"symbol":{"base":"Ä","quote":"USDT"},"isPinnedToStatusBar":false},{"symbol":{"base":"１２","quote":"USDT"},"isPinnedToStatusBar":false}])",
            {{{"Ä", "USDT"}, false}, {{"１２", "USDT"}, false}}}),
    [](const auto& info) { return info.param.name; });

TEST(FileWatchlistPersistence, WritesTheCurrentFormAndReadsItBack) {
    const QTemporaryDir directory;
    const platform::FileManager files(directory.filePath(QStringLiteral("share")),
                                      directory.path());
    const QString path = FileWatchlistPersistence::standardLocation(files);
    EXPECT_EQ(path, directory.filePath(QStringLiteral("share/Quorvel/watchlist.json")));
    FileWatchlistPersistence persistence(path);
    EXPECT_TRUE(persistence.load().empty());
    persistence.save({pinned, {eth, false}});
    EXPECT_EQ(platform::FileManager::contents(path),
              "[" + pinnedBTC +
                  R"(,{"symbol":{"base":"ETH","quote":"USDT"},"isPinnedToStatusBar":false}])");
    EXPECT_EQ(persistence.load(), (std::vector<WatchlistItem>{pinned, {eth, false}}));
}
