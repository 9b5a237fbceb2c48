// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Model/ExchangeEndpoints.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace quorvel;

namespace {

struct Judged {
    const char* rest;
    bool takesRest;
    const char* stream;
    bool takesStream;
};

} // namespace

TEST(ExchangeEndpoints, AreEachTakenOnlyWhereTheyAreSafe) {
    const ExchangeEndpoints own{QUrl(QStringLiteral("https://own.example")),
                                QUrl(QStringLiteral("wss://own.example/stream"))};
    const QTemporaryDir directory;
    platform::UserDefaults defaults(directory.filePath(QStringLiteral("Quorvel.conf")));
    const auto write = [&defaults](const char* key, const char* url) {
        defaults.set(QString::fromLatin1(key), QString::fromLatin1(url));
        return QUrl(QString::fromLatin1(url));
    };
    for (const auto& [rest, takesRest, stream, takesStream] : {
             Judged{"https://mirror.example", true, "wss://mirror.example/stream", true},
             Judged{"http://127.0.0.1:8080", true, "ws://127.0.0.1:8080/stream", true},
             Judged{"http://127.0.0.5", true, "ws://[::1]:9/stream", true},
             Judged{"http://localhost:1", true, "ws://localhost:1/stream", true},
             Judged{"http://mirror.example", false, "ws://mirror.example/stream", false},
             Judged{"http://127.0.0.1.example", false, "ws://10.0.0.1/stream", false},
             Judged{"wss://mirror.example", false, "https://mirror.example", false},
             Judged{"file:///etc/passwd", false, "/stream", false},
             Judged{"https://", false, "wss:", false},
             Judged{"", false, "rubbish", false},
             Judged{"https://mirror.example", true, "ws://mirror.example/stream", false},
             Judged{"http://mirror.example", false, "wss://mirror.example/stream", true},
         }) {
        const QUrl restURL = write("exchange.restURL", rest);
        const QUrl streamURL = write("exchange.streamURL", stream);
        const auto endpoints = ExchangeEndpoints::fromDefaults(defaults, own);
        EXPECT_EQ(endpoints.rest, takesRest ? restURL : own.rest) << rest;
        EXPECT_EQ(endpoints.stream, takesStream ? streamURL : own.stream) << stream;
    }
}
