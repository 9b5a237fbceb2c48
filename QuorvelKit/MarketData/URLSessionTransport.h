#pragma once

#include "Platform/Foundation/URLSession.h"
#include "QuorvelKit/MarketData/HTTPTransport.h"

namespace quorvel {

/// The transport over the platform's URL session, which must outlive it.
class URLSessionTransport final : public HTTPTransport {
public:
    explicit URLSessionTransport(platform::URLSession& session) : session_(session) {}

    platform::Task<QByteArray> get(QUrl url) override;

private:
    platform::URLSession& session_;
};

} // namespace quorvel
