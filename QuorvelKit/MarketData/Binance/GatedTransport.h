// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/MarketData/Binance/ExchangeGate.h"
#include "QuorvelKit/MarketData/HTTPTransport.h"

#include <memory>
#include <utility>

namespace quorvel {

/// A transport whose requests pass the exchange's gate first.
class GatedTransport final : public HTTPTransport {
public:
    /// @param gate must outlive the transport
    GatedTransport(std::unique_ptr<HTTPTransport> transport, ExchangeGate& gate)
        : transport_(std::move(transport)), gate_(gate) {}

    platform::Task<QByteArray> get(QUrl url) override {
        co_await gate_.pass(url);
        co_return co_await transport_->get(std::move(url));
    }

private:
    std::unique_ptr<HTTPTransport> transport_;
    ExchangeGate& gate_;
};

} // namespace quorvel
