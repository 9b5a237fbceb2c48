// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tools/ExchangeSimulator/EventLog.h"
#include "Tools/ExchangeSimulator/HTTP/HTTPResponse.h"
#include "Tools/ExchangeSimulator/HTTP/RestInterface.h"
#include "Tools/ExchangeSimulator/Stream/Feed.h"
#include "Tools/ExchangeSimulator/Stream/Limits.h"
#include "Tools/ExchangeSimulator/Stream/StreamHub.h"

#include <map>

namespace simulator {

/// What can be told from outside: the calls under /control/, listed in README.md.
class Control {
public:
    /// The parts that the calls act on. All must outlive the control.
    struct Parts {
        Feed& feed;
        StreamHub& hub;
        RestInterface& rest;
        ExchangeTime& time;
        Limits& limits;
        EventLog& log;
        /// What `reset` goes back to.
        bool walksNormally;
    };

    explicit Control(const Parts& parts);

    /// Whether that request is a control call.
    static bool isFor(const HTTPRequest& request);

    /// Carries the call out. Parameters come as a JSON body, as query items, or both.
    HTTPResponse answer(const HTTPRequest& request);

private:
    using Call = QJsonObject (Control::*)(const QJsonObject&);

    QJsonObject push(const QJsonObject& parameters);
    QJsonObject walk(const QJsonObject& parameters);
    QJsonObject drop(const QJsonObject& parameters);
    QJsonObject handshake(const QJsonObject& parameters);
    QJsonObject silence(const QJsonObject& parameters);
    QJsonObject frame(const QJsonObject& parameters);
    QJsonObject close(const QJsonObject& parameters);
    QJsonObject rest(const QJsonObject& parameters);
    QJsonObject exchangeInfo(const QJsonObject& parameters);
    QJsonObject clock(const QJsonObject& parameters);
    QJsonObject command(const QJsonObject& parameters);
    QJsonObject limits(const QJsonObject& parameters);
    QJsonObject reset(const QJsonObject& parameters);
    QJsonObject state(const QJsonObject& parameters);
    HTTPResponse log(const QJsonObject& parameters) const;
    void limitsChanged();

    Parts parts_;
    std::map<QString, Call> calls_;
};

} // namespace simulator
