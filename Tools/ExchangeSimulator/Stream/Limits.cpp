// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tools/ExchangeSimulator/Stream/Limits.h"

#include <limits>
#include <map>
#include <stdexcept>

namespace simulator {

namespace {

using Times = std::map<QString, std::chrono::milliseconds Limits::*>;
using Counts = std::map<QString, int Limits::*>;

const Times& times() {
    static const Times table{{QStringLiteral("pingIntervalMs"), &Limits::pingInterval},
                             {QStringLiteral("pongDeadlineMs"), &Limits::pongDeadline},
                             {QStringLiteral("lifetimeMs"), &Limits::lifetime},
                             {QStringLiteral("attemptWindowMs"), &Limits::attemptWindow},
                             {QStringLiteral("tickerIntervalMs"), &Limits::tickerInterval}};
    return table;
}

const Counts& counts() {
    static const Counts table{
        {QStringLiteral("connectionAttempts"), &Limits::connectionAttempts},
        {QStringLiteral("messagesPerSecond"), &Limits::messagesPerSecond},
        {QStringLiteral("streamsPerConnection"), &Limits::streamsPerConnection},
        {QStringLiteral("weightPerMinute"), &Limits::weightPerMinute}};
    return table;
}

} // namespace

QJsonObject Limits::toJSON() const {
    QJsonObject object;
    for (const auto& [key, member] : times())
        object[key] = static_cast<qint64>((this->*member).count());
    for (const auto& [key, member] : counts())
        object[key] = this->*member;
    return object;
}

void Limits::set(const QJsonObject& values) {
    Limits changed = *this;
    for (auto value = values.begin(); value != values.end(); ++value) {
        const qint64 number = value->toInteger();
        const auto time = times().find(value.key());
        const auto count = counts().find(value.key());
        const bool known = time != times().end() || count != counts().end();
        if (!known || number < 1 || number > std::numeric_limits<int>::max())
            throw std::invalid_argument("bad limit: " + value.key().toStdString());
        if (time != times().end())
            changed.*time->second = std::chrono::milliseconds(number);
        else
            changed.*count->second = static_cast<int>(number);
    }
    *this = changed;
}

} // namespace simulator
