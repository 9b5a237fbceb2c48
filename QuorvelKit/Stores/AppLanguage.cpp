// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Stores/AppLanguage.h"

#include "Platform/Foundation/StringTable.h"

namespace quorvel {

QString label(AppLanguage language) {
    switch (language) {
    case AppLanguage::system:
        break;
    case AppLanguage::english:
        return QStringLiteral("English");
    case AppLanguage::simplifiedChinese:
        return QStringLiteral("简体中文");
    }
    return platform::localized("QuorvelKit", "Follow system");
}

std::optional<std::string_view> localeIdentifier(AppLanguage language) {
    switch (language) {
    case AppLanguage::system:
        break;
    case AppLanguage::english:
        return "en";
    case AppLanguage::simplifiedChinese:
        return "zh-Hans";
    }
    return std::nullopt;
}

} // namespace quorvel
