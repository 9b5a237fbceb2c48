// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QVariantAnimation>

#include <chrono>

class QWidget;

namespace platform {

/// A part of a control that moves or fades: a share between 0 and 1 that the control's style paints
/// by. At rest at once where nobody sees it and where the desktop asks for little motion. Belongs
/// to the control.
class Motion final : public QVariantAnimation {
    Q_OBJECT

public:
    explicit Motion(QWidget& control);

    /// The control's motion; null where it has none.
    static Motion* of(const QWidget* control);

    double share() const { return share_; }

    void jumpTo(double share);

    /// @param duration of the motion itself @param rest how long nothing happens before it
    void moveTo(double share, std::chrono::milliseconds duration,
                std::chrono::milliseconds rest = {});

protected:
    void updateCurrentValue(const QVariant& value) override;

private:
    QWidget& control_;
    double share_ = 0;
};

} // namespace platform
