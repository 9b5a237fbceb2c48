// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/PlatformError.h"

#include <stdexcept>
#include <vector>

namespace test {

/// What a test puts into and finds in a persistence, which the store under test owns.
template <typename Element>
struct StoredState {
    std::vector<Element> stored;
    int saves = 0;
    bool failsToLoad = false;
    bool failsToSave = false;
};

/// A persistence of the given interface without a file.
template <typename Interface, typename Element>
class ScriptedPersistence : public Interface {
public:
    explicit ScriptedPersistence(StoredState<Element>& state) : state_(state) {}

    std::vector<Element> load() override {
        if (state_.failsToLoad)
            throw std::runtime_error("unreadable");
        return state_.stored;
    }

    void save(const std::vector<Element>& elements) override {
        ++state_.saves;
        if (state_.failsToSave)
            throw platform::PlatformError(QStringLiteral("No space left on device"));
        state_.stored = elements;
    }

private:
    StoredState<Element>& state_;
};

} // namespace test
