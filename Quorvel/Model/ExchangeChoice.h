// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/UserDefaults.h"
#include "Quorvel/Model/ExchangeEndpoints.h"

#include <utility>

namespace quorvel {

/// Where prices come from: the exchange itself, its data-only mirror for places that it does not
/// serve, or addresses that somebody wrote into the preferences. A change counts from the next
/// start.
class ExchangeChoice {
public:
    /// @param defaults must outlive the choice
    ExchangeChoice(platform::UserDefaults& defaults, ExchangeEndpoints usual,
                   ExchangeEndpoints mirror)
        : defaults_(defaults), usual_(std::move(usual)), mirror_(std::move(mirror)) {}

    ExchangeEndpoints endpoints() const;

    bool isUsual() const;
    bool isMirror() const;

    void chooseUsual();
    void chooseMirror();

private:
    platform::UserDefaults& defaults_;
    ExchangeEndpoints usual_;
    ExchangeEndpoints mirror_;
};

} // namespace quorvel
