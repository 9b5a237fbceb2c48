// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/Binance/ExchangeGate.h"

#include "Platform/Async/SleepFor.h"
#include "QuorvelKit/MarketData/HTTPDate.h"
#include "QuorvelKit/MarketData/HTTPTransportError.h"

#include <QUrlQuery>

#include <algorithm>
#include <utility>

namespace quorvel {

using platform::Task;
using platform::URLResponse;
using std::chrono::nanoseconds;
using std::chrono::seconds;

namespace {

constexpr nanoseconds perWeight = nanoseconds(seconds(1)) / ExchangeGate::perSecond;
constexpr nanoseconds paidInAdvance = perWeight * ExchangeGate::burst;

enum Status { forbidden = 403, banned = 418, tooManyRequests = 429, restricted = 451 };

/// A header's whole number; absent without one.
std::optional<int> number(const URLResponse& response, QByteArrayView name) {
    bool isNumber = false;
    const int value = response.header(name).value_or(QByteArray()).trimmed().toInt(&isNumber);
    return isNumber && value >= 0 ? std::optional(value) : std::nullopt;
}

} // namespace

ExchangeGate::ExchangeGate(platform::Clock& clock, ExchangeClock& exchangeClock, Report report)
    : clock_(clock), exchangeClock_(exchangeClock), report_(std::move(report)) {}

Task<> ExchangeGate::pass(QUrl url) {
    throwWhereSilent();
    const auto now = clock_.uptime();
    const auto wait = paidUntil_ - paidInAdvance - now;
    paidUntil_ = std::max(paidUntil_, now) + weight(url) * perWeight;
    if (wait > nanoseconds::zero()) {
        co_await platform::sleepFor(clock_, wait);
        throwWhereSilent();
    }
}

void ExchangeGate::throwWhereSilent() const {
    if (silentUntil())
        throw HTTPTransportError::requestFailed(silenceStatus_);
}

std::optional<nanoseconds> ExchangeGate::silentUntil() const {
    return clock_.bootTime() < silentUntil_ ? std::optional(silentUntil_) : std::nullopt;
}

void ExchangeGate::heard(const URLResponse& response) {
    learnTime(response);
    heedUsedWeight(response);
    const int status = response.statusCode.value_or(0);
    const bool wantsSilence = status == tooManyRequests || status == banned;
    if (wantsSilence) {
        const auto retryAfter = number(response, "Retry-After");
        const auto silence = retryAfter ? seconds(*retryAfter) : usualSilence;
        silentUntil_ = std::max(silentUntil_, nanoseconds(clock_.bootTime() + silence));
        silenceStatus_ = status;
    }
    if (report_ && (wantsSilence || status == restricted || status == forbidden))
        report_({.kind = ConnectionEvent::Kind::refused, .status = status, .until = silentUntil()});
}

void ExchangeGate::learnTime(const URLResponse& response) const {
    if (const auto date = dateOfHeader(response.header("Date").value_or(QByteArray())))
        exchangeClock_.learn(*date, seconds(number(response, "Age").value_or(0)),
                             response.headersArrival);
}

void ExchangeGate::heedUsedWeight(const URLResponse& response) {
    if (number(response, "X-MBX-USED-WEIGHT-1M").value_or(0) < mostUsed)
        return;
    // The exchange counts anew with each of its minutes.
    const auto time = platform::timeIntervalSince1970(exchangeClock_.now());
    const auto minute = std::chrono::floor<std::chrono::minutes>(time);
    const auto left = std::chrono::ceil<nanoseconds>(minute + std::chrono::minutes(1) - time);
    paidUntil_ = std::max(paidUntil_, clock_.uptime() + paidInAdvance + left);
}

int ExchangeGate::weight(const QUrl& url) {
    const QString path = url.path();
    if (path.endsWith(QLatin1StringView("/exchangeInfo")))
        return 20;
    if (!path.endsWith(QLatin1StringView("/ticker/24hr")))
        return 2;
    const auto pairs = QUrlQuery(url).queryItemValue(QStringLiteral("symbols")).count(u',') + 1;
    return pairs <= 20 ? 2 : pairs <= 100 ? 40 : 80;
}

} // namespace quorvel
