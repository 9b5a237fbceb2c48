// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/AccessiblePicker.h"

#include "Platform/Controls/Picker.h"

#include <QAccessibleWidget>

namespace platform {

namespace {

class AccessiblePicker final : public QAccessibleWidget {
public:
    explicit AccessiblePicker(Picker& picker)
        : QAccessibleWidget(&picker, QAccessible::ComboBox), picker_(picker) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? picker_.currentText() : QAccessibleWidget::text(kind);
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = picker_.isOpen();
        return state;
    }

    // The menu comes into being when it is opened, and is a window of its own.
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }

    QStringList actionNames() const override {
        return QAccessibleWidget::actionNames() << showMenuAction();
    }

    void doAction(const QString& name) override {
        if (name == showMenuAction())
            picker_.showPopup();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    Picker& picker_;
};

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    auto* const picker = qobject_cast<Picker*>(object);
    return picker ? new AccessiblePicker(*picker) : nullptr;
}

} // namespace

void installAccessiblePicker() {
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(isInstalled)
}

} // namespace platform
