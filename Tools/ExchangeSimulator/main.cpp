// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tools/ExchangeSimulator/Server.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <cstdio>
#include <stdexcept>
#include <sys/signalfd.h>

namespace {

using namespace simulator;

/// A descriptor that becomes readable when the process is asked to end.
int endSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    return signalfd(-1, &signals, SFD_CLOEXEC);
}

void addOptions(QCommandLineParser& parser) {
    const auto add = [&parser](const char* name, const char* text, const char* value = "",
                               const char* fallback = "") {
        parser.addOption({QString::fromLatin1(name), QString::fromLatin1(text),
                          QString::fromLatin1(value), QString::fromLatin1(fallback)});
    };
    parser.setApplicationDescription(
        QStringLiteral("An exchange with made-up prices, on loopback."));
    parser.addHelpOption();
    add("port", "Port to listen on, 0 for any.", "N", "0");
    add("seed", "Seed of the random walk.", "N", "1");
    add("scenario", "Pairs to start with and timed pushes, JSON.", "FILE");
    add("pairs", "Keep these pairs only.", "BTCUSDT,ETHUSDT,...");
    add("quiet", "No random walk: prices change when told to.");
    add("log", "Also write each event to this file.", "FILE");
}

template <typename Number>
Number numberOption(const QCommandLineParser& parser, const char* name) {
    bool ok = false;
    const qulonglong number = parser.value(QString::fromLatin1(name)).toULongLong(&ok);
    if (!ok || number > std::numeric_limits<Number>::max())
        throw std::runtime_error(std::string("bad number: --") + name);
    return static_cast<Number>(number);
}

void fill(Market& market, const Scenario& scenario, const QCommandLineParser& parser) {
    for (const Scenario::StartPair& pair : scenario.pairs)
        market.add(pair.symbol, pair.price, pair.change, pair.status);
    if (scenario.pairs.empty())
        market.addDefaults();
    if (const QString pairs = parser.value(QStringLiteral("pairs")); !pairs.isEmpty())
        market.restrictTo(pairs.split(u',', Qt::SkipEmptyParts));
}

int run(const QCommandLineParser& parser) {
    EventLog log;
    if (const QString path = parser.value(QStringLiteral("log")); !path.isEmpty())
        log.writeTo(path);
    const QString scenarioPath = parser.value(QStringLiteral("scenario"));
    const Scenario scenario = scenarioPath.isEmpty() ? Scenario() : Scenario::load(scenarioPath);
    const bool walks = scenario.walk.value_or(true) && !parser.isSet(QStringLiteral("quiet"));

    Limits limits;
    Market market(numberOption<quint64>(parser, "seed"));
    fill(market, scenario, parser);
    ExchangeTime time;
    StreamHub hub(limits, log);
    RestInterface rest(market, time, limits, log);
    Feed feed(market, hub, time, limits);
    feed.setWalking(walks);
    Control control({.feed = feed,
                     .hub = hub,
                     .rest = rest,
                     .time = time,
                     .limits = limits,
                     .log = log,
                     .walksNormally = walks});
    Server server(control, hub, rest, log);
    if (!server.listen(numberOption<quint16>(parser, "port")))
        throw std::runtime_error("cannot listen: " + server.errorText().toStdString());
    std::printf("listening on http://127.0.0.1:%d\n", server.port());
    std::fflush(stdout);
    feed.play(scenario);
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
    const int endDescriptor = endSignals();
    QCoreApplication application(argc, argv);
    QSocketNotifier notifier(endDescriptor, QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, &application,
                     [] { QCoreApplication::quit(); });
    QCommandLineParser parser;
    addOptions(parser);
    parser.process(application);
    try {
        return run(parser);
    } catch (const std::runtime_error& error) {
        std::fprintf(stderr, "exchange-simulator: %s\n", error.what());
        return 1;
    }
}
