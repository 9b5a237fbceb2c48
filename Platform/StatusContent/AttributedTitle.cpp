// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusContent/AttributedTitle.h"

namespace platform {

QString AttributedTitle::plainText() const {
    QString text;
    for (const Run& run : runs)
        text += run.text;
    return text;
}

} // namespace platform
