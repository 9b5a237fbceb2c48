// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <chrono>
#include <optional>
#include <vector>

class QJsonValue;

namespace simulator {

/// The pairs to start with and what happens to them when. Its file's form is told in README.md.
struct Scenario {
    struct StartPair {
        QString symbol;
        QByteArray price;
        QByteArray change;
        QString status;
    };
    struct TimedPush {
        std::chrono::milliseconds at{};
        QString symbol;
        std::optional<QByteArray> price;
        std::optional<QByteArray> change;
    };

    std::vector<StartPair> pairs;
    std::vector<TimedPush> pushes;
    /// Whether prices walk by themselves; absent leaves it to the command line.
    std::optional<bool> walk;
    /// Times count from the first stream connection, not from the start.
    bool fromFirstConnection = false;

    /// Throws std::runtime_error with a message for the user.
    static Scenario load(const QString& path);
};

/// A decimal given as text, taken as it stands, or as a number; absent for anything else.
std::optional<QByteArray> decimalText(const QJsonValue& value);

} // namespace simulator
