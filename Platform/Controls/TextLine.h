// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>

namespace platform {

/// One line of text in one of the three strengths. Its digits are equally wide, so that a number in
/// it can change without the rest moving; what does not fit ends in an ellipsis and can be read in
/// full under the pointer.
class TextLine final : public QLabel {
    Q_OBJECT

public:
    enum class Strength { primary, secondary, tertiary };

    explicit TextLine(const QString& text, Strength strength = Strength::primary,
                      QWidget* parent = nullptr);

    void setStrength(Strength strength);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    Strength strength_;
};

} // namespace platform
