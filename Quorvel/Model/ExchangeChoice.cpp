// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Model/ExchangeChoice.h"

namespace quorvel {

ExchangeEndpoints ExchangeChoice::endpoints() const {
    return ExchangeEndpoints::fromDefaults(defaults_, usual_);
}

bool ExchangeChoice::isUsual() const {
    return endpoints() == usual_;
}

bool ExchangeChoice::isMirror() const {
    return endpoints() == mirror_;
}

void ExchangeChoice::chooseUsual() {
    defaults_.set({{ExchangeEndpoints::restKey, {}}, {ExchangeEndpoints::streamKey, {}}});
}

void ExchangeChoice::chooseMirror() {
    defaults_.set({{ExchangeEndpoints::restKey, mirror_.rest.toString()},
                   {ExchangeEndpoints::streamKey, mirror_.stream.toString()}});
}

} // namespace quorvel
