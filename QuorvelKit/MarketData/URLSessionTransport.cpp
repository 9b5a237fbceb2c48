// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/URLSessionTransport.h"

#include "QuorvelKit/MarketData/HTTPTransportError.h"

namespace quorvel {

platform::Task<QByteArray> URLSessionTransport::get(QUrl url) {
    auto response = co_await session_.data(url);
    if (!response.statusCode)
        throw HTTPTransportError::invalidResponse();
    if (heard_)
        heard_(url, response);
    if (*response.statusCode < 200 || *response.statusCode > 299)
        throw HTTPTransportError::requestFailed(*response.statusCode);
    co_return std::move(response.body);
}

} // namespace quorvel
