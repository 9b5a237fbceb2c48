// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Foundation/SystemClock.h"
#include "Quorvel/Panel/WatchlistPanel.h"
#include "Quorvel/Panel/WatchlistRows.h"
#include "QuorvelKit/MarketData/Binance/BinanceProvider.h"
#include "QuorvelKit/Services/SystemLaunchAtLoginService.h"
#include "Tests/Support/ScriptedDelivering.h"

#include <QApplication>
#include <QDBusConnection>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdlib>

using namespace quorvel;

namespace {

constexpr int pairCount = 500;

Symbol pairNumber(int number) {
    return {"COIN" + std::to_string(number), "USDT"};
}

/// A panel of so many pairs, all of them in sight, on a screen that is only in memory.
class LongPanel {
public:
    LongPanel() {
        writeWatchlist();
        model_ = std::make_unique<AppModel>(AppModel::Collaborators{
            .provider = BinanceProvider::live(clock_, QUrl(QStringLiteral("http://127.0.0.1:9")),
                                              QUrl(QStringLiteral("ws://127.0.0.1:9/stream"))),
            .feed = feed_,
            .settings = settings_,
            .exchange = exchange_,
            .delivering = std::make_unique<test::ScriptedDelivering>(),
            .loginService = std::make_unique<SystemLaunchAtLoginService>(
                platform::LoginItem({}, path("login"))),
            .workspace = workspace_,
            .files = files_,
            .clock = clock_});
        applyPrices();
        panel_ = std::make_unique<WatchlistPanel>(*model_, [] {});
        rows_ = panel_->findChild<WatchlistRows*>();
        panel_->resize(panel_->width(), pairCount * WatchlistRows::pitch + 200);
        show();
        if (rows_->count() != pairCount)
            std::abort();
    }

    void show() {
        panel_->show();
        QCoreApplication::processEvents();
    }

    void hide() { panel_->hide(); }

    /// Another price for every pair.
    void applyPrices() {
        ++price_;
        for (int i = 0; i < pairCount; ++i)
            model_->quotes().apply({pairNumber(i), Decimal(price_), Decimal(1), clock_.now()});
    }

    /// Asks every row for the column that a price changes, and nothing of the model.
    void updatePrices() {
        constexpr int column = 104;
        constexpr int fromRight = 29;
        for (std::size_t i = 0; i < rows_->count(); ++i) {
            WatchlistRow& row = rows_->row(i);
            row.update(row.width() - fromRight - column, 0, column, row.height());
        }
    }

private:
    QString path(const char* name) const { return directory_.filePath(QString::fromUtf8(name)); }

    void writeWatchlist() const {
        QJsonArray items;
        for (int i = 0; i < pairCount; ++i) {
            const QString base = QString::fromStdString(pairNumber(i).base);
            items.append(
                QJsonObject{{QStringLiteral("symbol"),
                             QJsonObject{{QStringLiteral("base"), base},
                                         {QStringLiteral("quote"), QStringLiteral("USDT")}}},
                            {QStringLiteral("isPinnedToStatusBar"), false}});
        }
        platform::FileManager::writeAtomically(QJsonDocument(items).toJson(),
                                               path("share/Quorvel/watchlist.json"));
    }

    QTemporaryDir directory_;
    platform::SystemClock clock_;
    FeedStatus feed_{clock_};
    platform::FileManager files_{path("share"), path("tmp")};
    platform::UserDefaults defaults_{path("Quorvel.conf")};
    SettingsStore settings_{defaults_};
    ExchangeChoice exchange_{defaults_, {}, {QUrl(QStringLiteral("https://mirror")), {}}};
    platform::Workspace workspace_{{}, QDBusConnection(QString()), clock_};
    std::unique_ptr<AppModel> model_;
    std::unique_ptr<WatchlistPanel> panel_;
    WatchlistRows* rows_ = nullptr;
    int price_ = 65000;
};

void repaintPrices(benchmark::State& state) {
    LongPanel panel;
    for (auto _ : state) {
        panel.updatePrices();
        QCoreApplication::processEvents();
    }
}
BENCHMARK(repaintPrices)->Name("500PriceUpdates/reference")->Unit(benchmark::kMillisecond);

void applyPrices(benchmark::State& state) {
    LongPanel panel;
    for (auto _ : state) {
        panel.applyPrices();
        QCoreApplication::processEvents();
    }
}
BENCHMARK(applyPrices)->Name("500PriceUpdates/subject")->Unit(benchmark::kMillisecond);

void applyPricesWhileHidden(benchmark::State& state) {
    LongPanel panel;
    panel.hide();
    for (auto _ : state) {
        panel.applyPrices();
        QCoreApplication::processEvents();
    }
}
BENCHMARK(applyPricesWhileHidden)
    ->Name("500PriceUpdatesWhileHidden")
    ->Unit(benchmark::kMillisecond);

void openPanel(benchmark::State& state) {
    LongPanel panel;
    for (auto _ : state) {
        panel.hide();
        panel.show();
    }
}
BENCHMARK(openPanel)->Name("500PairsOpened")->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // It remarks on every window that it has no window manager.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
