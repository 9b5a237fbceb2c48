// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Quorvel/Model/PresentationChoice.h"

#include <QString>

#include <optional>

class QComboBox;

namespace quorvel {

/// A combo box of the ways in which prices can be shown. Those that this desktop does not show
/// cannot be chosen, and their tooltips say why.
///
/// @param choice must outlive the box
QComboBox* makePresentationBox(PresentationChoice& choice);

/// What that way of showing prices is good for, in the interface language.
QString presentationPurpose(std::optional<PresentationChoice::Kind> kind);

} // namespace quorvel
