// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Panel/AccessibleWatchlistRow.h"

#include "Quorvel/Panel/WatchlistRow.h"
#include "Quorvel/Panel/WatchlistRows.h"

#include <QAccessibleWidget>
#include <QPushButton>

namespace quorvel {

namespace {

class AccessibleWatchlistRow final : public QAccessibleWidget {
public:
    explicit AccessibleWatchlistRow(WatchlistRow& row)
        : QAccessibleWidget(&row, QAccessible::ListItem), row_(row) {}

    QString text(QAccessible::Text kind) const override {
        switch (kind) {
        case QAccessible::Name:
            return row_.spokenName();
        case QAccessible::Description:
            return row_.spokenDescription();
        default:
            return QAccessibleWidget::text(kind);
        }
    }

    // The sparkline says nothing that can be read out.
    int childCount() const override { return 1; }

    QAccessibleInterface* child(int index) const override {
        return index == 0 ? QAccessible::queryAccessibleInterface(&row_.removeButton()) : nullptr;
    }

    int indexOfChild(const QAccessibleInterface* child) const override {
        return child->object() == &row_.removeButton() ? 0 : -1;
    }

    QStringList actionNames() const override {
        return QAccessibleWidget::actionNames() << showMenuAction();
    }

    void doAction(const QString& name) override {
        if (name == showMenuAction())
            row_.openMenu(row_.mapToGlobal(row_.rect().center()));
        else
            QAccessibleWidget::doAction(name);
    }

private:
    WatchlistRow& row_;
};

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    if (auto* const row = qobject_cast<WatchlistRow*>(object))
        return new AccessibleWatchlistRow(*row);
    if (auto* const rows = qobject_cast<WatchlistRows*>(object))
        return new QAccessibleWidget(rows, QAccessible::List);
    return nullptr;
}

} // namespace

void installAccessibleWatchlist() {
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(isInstalled)
}

} // namespace quorvel
