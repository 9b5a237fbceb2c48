// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Model/PresentationChoice.h"

#include "Platform/Foundation/StringTable.h"
#include "Platform/StatusBar/StatusItemPresentationChoice.h"
#include "Quorvel/Model/StatusItemPreferences.h"

#include <utility>

namespace quorvel {

using platform::localized;
using platform::StatusItemPresentationChoice;

std::optional<PresentationChoice::Kind> PresentationChoice::preferred() const {
    return StatusItemPreferences::options(defaults_).presentation;
}

void PresentationChoice::setPreferred(std::optional<Kind> kind) {
    const bool isChange = preferred() != kind;
    StatusItemPreferences::setPresentation(defaults_, kind);
    if (isChange)
        Q_EMIT preferredChanged();
    Q_EMIT questionChanged();
}

void PresentationChoice::setDesktop(const platform::StatusItemDesktop& desktop) {
    if (std::exchange(desktop_, desktop) == desktop)
        return;
    Q_EMIT desktopChanged();
    Q_EMIT questionChanged();
}

std::optional<QString> PresentationChoice::obstacle(Kind kind) const {
    using Obstacle = StatusItemPresentationChoice::Obstacle;
    const auto found = StatusItemPresentationChoice::obstacle(kind, desktop_);
    if (!found)
        return std::nullopt;
    switch (*found) {
    case Obstacle::noPanel:
        return localized("Quorvel", "No panel here shows status items");
    case Obstacle::noText:
        return localized("Quorvel", "This panel writes no text beside icons");
    case Obstacle::squareIcons:
        return localized("Quorvel", "This panel shows square icons only");
    case Obstacle::noTray:
        return localized("Quorvel", "No tray here takes windows");
    case Obstacle::noPlacement:
        return localized("Quorvel", "Windows can't be placed on this desktop");
    }
    return std::nullopt;
}

bool PresentationChoice::isQuestionDue() const {
    return !StatusItemPresentationChoice::isPanelKnown(desktop_) &&
           !StatusItemPreferences::isPresentationSettled(defaults_);
}

void PresentationChoice::confirm() {
    setPreferred(preferred());
}

} // namespace quorvel
