// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Alerts/AlertConditionKind.h"

#include "Platform/Foundation/StringTable.h"

namespace quorvel {

QString label(AlertConditionKind kind) {
    switch (kind) {
    case AlertConditionKind::priceRisesAbove:
        break;
    case AlertConditionKind::priceFallsBelow:
        return platform::localized("QuorvelKit", "Price falls below");
    case AlertConditionKind::changeRisesAbove:
        return platform::localized("QuorvelKit", "Gain exceeds");
    case AlertConditionKind::changeFallsBelow:
        return platform::localized("QuorvelKit", "Loss exceeds");
    }
    return platform::localized("QuorvelKit", "Price rises above");
}

bool isPercentage(AlertConditionKind kind) {
    return kind == AlertConditionKind::changeRisesAbove ||
           kind == AlertConditionKind::changeFallsBelow;
}

bool isRising(AlertConditionKind kind) {
    return kind == AlertConditionKind::priceRisesAbove ||
           kind == AlertConditionKind::changeRisesAbove;
}

} // namespace quorvel
