// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <exception>

namespace quorvel {

/// A connection's own failures; the platform's come as they are.
class WebSocketError : public std::exception {
public:
    enum class Code {
        notConnected, ///< nothing is open: not connected yet, or closed
        closed,       ///< a frame that is neither text nor binary arrived
    };

    explicit WebSocketError(Code code) : code_(code) {}

    Code code() const { return code_; }
    const char* what() const noexcept override {
        return code_ == Code::notConnected ? "not connected" : "closed";
    }

    friend bool operator==(const WebSocketError& left, const WebSocketError& right) {
        return left.code_ == right.code_;
    }

private:
    Code code_;
};

} // namespace quorvel
