// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QFile>
#include <QJsonArray>
#include <QJsonObject>

#include <deque>

namespace simulator {

/// What clients did, in order: numbered from 1, each with its time, its kind and details that
/// depend on the kind (listed in README.md). Keeps the latest 200,000 events.
class EventLog {
public:
    /// Also writes each event as a line of JSON to that file from now on. Throws std::runtime_error
    /// when the file cannot be written.
    void writeTo(const QString& path);

    void add(const QString& kind, const QJsonObject& detail);

    /// The events numbered above `number`, oldest first.
    QJsonArray since(qint64 number) const;

    /// The number of the latest event; 0 when there is none.
    qint64 lastNumber() const { return lastNumber_; }

private:
    std::deque<QJsonObject> events_;
    qint64 lastNumber_ = 0;
    QFile file_;
};

} // namespace simulator
