// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tools/ExchangeSimulator/HTTP/WeightCount.h"

#include <algorithm>

namespace simulator {

using namespace std::chrono_literals;

namespace {

constexpr auto banTime = 120s;
/// Who goes on after so many refusals is banned.
constexpr int patience = 10;

} // namespace

int WeightCount::weight(const HTTPRequest& request) {
    const QString path = request.path();
    if (path == QLatin1String("/api/v3/exchangeInfo"))
        return 20;
    if (path != QLatin1String("/api/v3/ticker/24hr"))
        return 2;
    const auto pairs = request.queryItem(u"symbols").value_or(QString()).count(u',') + 1;
    return pairs <= 20 ? 2 : pairs <= 100 ? 40 : 80;
}

std::optional<HTTPResponse> WeightCount::count(const HTTPRequest& request, int limit) {
    const Instant now = std::chrono::steady_clock::now();
    if (now < bannedUntil_)
        return refusal(418, std::chrono::ceil<std::chrono::seconds>(bannedUntil_ - now));
    if (now - minute_ >= 1min) {
        minute_ += std::chrono::floor<std::chrono::minutes>(now - minute_);
        used_ = refusals_ = 0;
    }
    used_ += weight(request);
    most_ = std::max(most_, used_);
    if (used_ <= limit)
        return std::nullopt;
    if (++refusals_ > patience) {
        bannedUntil_ = now + banTime;
        return refusal(418, banTime);
    }
    return refusal(429, std::chrono::ceil<std::chrono::seconds>(minute_ + 1min - now));
}

HTTPResponse WeightCount::refusal(int status, std::chrono::seconds retryAfter) {
    auto response = HTTPResponse::error(status, -1003, "Too much request weight used.");
    response.headers.append({"Retry-After", QByteArray::number(retryAfter.count())});
    return response;
}

} // namespace simulator
