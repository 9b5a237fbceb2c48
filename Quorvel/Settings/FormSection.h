// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Quorvel/Settings/FormCard.h"

#include <QWidget>

namespace quorvel {

/// A part of a form: a header, and the card with its rows.
class FormSection : public QWidget {
    Q_OBJECT

public:
    explicit FormSection(const QString& title, QWidget* parent = nullptr);

    FormCard& card() const { return *card_; }

private:
    FormCard* card_ = nullptr;
};

} // namespace quorvel
