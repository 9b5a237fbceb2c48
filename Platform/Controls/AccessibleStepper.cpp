// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/AccessibleStepper.h"

#include "Platform/Controls/Stepper.h"

#include <QAccessibleWidget>

namespace platform {

namespace {

class AccessibleStepper final : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit AccessibleStepper(Stepper& stepper)
        : QAccessibleWidget(&stepper, QAccessible::SpinBox), stepper_(stepper) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text kind) const override {
        // Whole, as it is shown.
        return kind == QAccessible::Value ? QString::number(static_cast<int>(stepper_.value()))
                                          : QAccessibleWidget::text(kind);
    }

    QVariant currentValue() const override { return stepper_.value(); }
    void setCurrentValue(const QVariant& value) override { stepper_.setValue(value.toDouble()); }
    QVariant maximumValue() const override { return stepper_.maximum(); }
    QVariant minimumValue() const override { return stepper_.minimum(); }
    QVariant minimumStepSize() const override { return Stepper::step; }

    QStringList actionNames() const override {
        return QAccessibleWidget::actionNames() << increaseAction() << decreaseAction();
    }

    void doAction(const QString& name) override {
        if (name == increaseAction())
            stepper_.setValue(stepper_.value() + Stepper::step);
        else if (name == decreaseAction())
            stepper_.setValue(stepper_.value() - Stepper::step);
        else
            QAccessibleWidget::doAction(name);
    }

private:
    Stepper& stepper_;
};

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    auto* const stepper = qobject_cast<Stepper*>(object);
    return stepper ? new AccessibleStepper(*stepper) : nullptr;
}

} // namespace

void installAccessibleStepper() {
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(isInstalled)
}

} // namespace platform
