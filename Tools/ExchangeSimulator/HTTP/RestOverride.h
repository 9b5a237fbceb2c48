// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tools/ExchangeSimulator/HTTP/HTTPResponse.h"

#include <QJsonObject>

#include <chrono>
#include <optional>

namespace simulator {

/// How the answers of one REST path differ from the usual ones.
struct RestOverride {
    /// Absent: the usual status, 200 when there is a body.
    std::optional<int> status;
    /// Absent: the usual body, or none with a status that is not 200.
    std::optional<QByteArray> body;
    HTTPHeaders headers;
    std::chrono::milliseconds delay{0};
    bool hang = false;
    bool truncate = false;
    bool chunked = false;
    qsizetype dripBytes = 0;
    std::chrono::milliseconds dripPause{0};
    /// How many answers it holds for; absent: all until it is reset.
    std::optional<int> count;

    /// From a control call's body; unknown keys are left alone.
    static RestOverride fromJSON(const QJsonObject& object);

    /// What to send in place of the usual answer.
    HTTPResponse applied(const HTTPResponse& usual) const;
};

} // namespace simulator
