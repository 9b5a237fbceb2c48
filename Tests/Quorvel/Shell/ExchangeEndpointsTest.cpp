#include "Quorvel/Shell/ExchangeEndpoints.h"

#include "QuorvelKit/MarketData/BinanceProvider.h"
#include "QuorvelKit/MarketData/SubscriptionCommand.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace quorvel;

namespace {

struct Judged {
    const char* rest;
    const char* stream;
    bool isUsable;
};

class Endpoints : public testing::TestWithParam<Judged> {};

} // namespace

TEST_P(Endpoints, AreTakenOnlyWhereTheyAreSafe) {
    const QTemporaryDir directory;
    platform::UserDefaults defaults(directory.filePath(QStringLiteral("Quorvel.conf")));
    defaults.setString(QStringLiteral("exchange.restURL"), QString::fromLatin1(GetParam().rest));
    defaults.setString(QStringLiteral("exchange.streamURL"),
                       QString::fromLatin1(GetParam().stream));
    const auto endpoints = ExchangeEndpoints::fromDefaults(defaults);
    const bool usable = GetParam().isUsable;
    EXPECT_EQ(endpoints.rest, usable ? QUrl(QString::fromLatin1(GetParam().rest))
                                     : BinanceProvider::defaultRESTURL());
    EXPECT_EQ(endpoints.stream, usable ? QUrl(QString::fromLatin1(GetParam().stream))
                                       : QUrl(SubscriptionCommand::host()));
}

INSTANTIATE_TEST_SUITE_P(
    ExchangeEndpoints, Endpoints,
    testing::Values(Judged{"https://mirror.example", "wss://mirror.example/stream", true},
                    Judged{"http://127.0.0.1:8080", "ws://127.0.0.1:8080/stream", true},
                    Judged{"http://127.0.0.5", "ws://[::1]:9/stream", true},
                    Judged{"http://localhost:1", "ws://localhost:1/stream", true},
                    Judged{"http://mirror.example", "ws://mirror.example/stream", false},
                    Judged{"http://127.0.0.1.example", "ws://10.0.0.1/stream", false},
                    Judged{"wss://mirror.example", "https://mirror.example", false},
                    Judged{"file:///etc/passwd", "/stream", false},
                    Judged{"https://", "wss:", false}, Judged{"", "rubbish", false}));
