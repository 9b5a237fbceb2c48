// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Foundation/NotificationCenter.h"

#include <utility>
#include <vector>

namespace platform {

NotificationCenter::Token NotificationCenter::addObserver(const QString& name,
                                                          std::function<void()> block) {
    const Token token{++count_};
    observers_.emplace(token, std::make_shared<const Observer>(name, std::move(block)));
    return token;
}

void NotificationCenter::post(const QString& name) {
    std::vector<Token> concerned;
    for (const auto& [token, observer] : observers_) {
        if (observer->name == name)
            concerned.push_back(token);
    }
    for (const Token token : concerned) {
        const auto found = observers_.find(token);
        if (found == observers_.end())
            continue; // removed by one that was called before it
        const auto observer = found->second;
        observer->block();
    }
}

} // namespace platform
