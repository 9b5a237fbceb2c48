// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tools/ExchangeSimulator/EventLog.h"

#include <QDateTime>
#include <QJsonDocument>

#include <algorithm>
#include <stdexcept>

namespace simulator {

namespace {

constexpr std::size_t mostEvents = 200'000;

} // namespace

void EventLog::writeTo(const QString& path) {
    file_.setFileName(path);
    if (!file_.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw std::runtime_error("cannot write " + path.toStdString());
}

void EventLog::add(const QString& kind, const QJsonObject& detail) {
    const QJsonObject event{{QStringLiteral("n"), ++lastNumber_},
                            {QStringLiteral("ms"), QDateTime::currentMSecsSinceEpoch()},
                            {QStringLiteral("kind"), kind},
                            {QStringLiteral("detail"), detail}};
    events_.push_back(event);
    if (events_.size() > mostEvents)
        events_.pop_front();
    if (file_.isOpen()) {
        file_.write(QJsonDocument(event).toJson(QJsonDocument::Compact) + '\n');
        file_.flush();
    }
}

QJsonArray EventLog::since(qint64 number) const {
    const qint64 first = lastNumber_ - static_cast<qint64>(events_.size()) + 1;
    const qint64 skipped =
        std::clamp<qint64>(number - first + 1, 0, static_cast<qint64>(events_.size()));
    QJsonArray array;
    for (auto event = events_.begin() + skipped; event != events_.end(); ++event)
        array.append(*event);
    return array;
}

} // namespace simulator
