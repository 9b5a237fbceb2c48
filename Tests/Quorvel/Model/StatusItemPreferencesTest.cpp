// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Model/StatusItemPreferences.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace quorvel;
using platform::StripPosition;
using Kind = platform::StatusItemPresentationKind;

namespace {

struct Written {
    const char* lines = nullptr;
    std::optional<Kind> kind;
    StripPosition position = {};
};

TEST(StatusItemPreferences, AreReadAsPeopleWriteThem) {
    const QTemporaryDir directory;
    int count = 0;
    for (const auto& [lines, kind, position] : {
             Written{"", std::nullopt},
             Written{"statusItem.presentation=auto", std::nullopt},
             Written{"statusItem.presentation=label", Kind::label},
             Written{"statusItem.presentation=image", Kind::image},
             Written{"statusItem.presentation=dock", Kind::dock},
             Written{"statusItem.presentation=icon", Kind::icon},
             Written{"statusItem.presentation=strip\nstatusItem.stripPosition=\"left,0.25\"",
                     Kind::strip,
                     {StripPosition::Edge::left, 0.25}},
             Written{"statusItem.stripPosition=bottom,0.5",
                     std::nullopt,
                     {StripPosition::Edge::bottom, 0.5}},
             Written{"statusItem.presentation=\" dock \"", Kind::dock},
             Written{"statusItem.presentation=Label\nstatusItem.stripPosition=5", std::nullopt},
         }) {
        const QString path = directory.filePath(QString::number(++count));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("[General]\n") + lines + '\n');
        file.close();
        const auto options = StatusItemPreferences::options(platform::UserDefaults(path));
        EXPECT_EQ(options.presentation, kind) << lines;
        EXPECT_EQ(options.stripPosition, position) << lines;
    }
}

} // namespace
