// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Appearance/SymbolIcon.h"

#include "Platform/Appearance/SymbolImage.h"

#include <QIconEngine>
#include <QPainter>

namespace platform {

namespace {

class SymbolIconEngine final : public QIconEngine {
public:
    explicit SymbolIconEngine(const SymbolImage& symbol) : symbol_(symbol) {}

    void paint(QPainter* painter, const QRect& area, QIcon::Mode, QIcon::State) override {
        symbol_.paint(*painter, area, painter->pen().color());
    }

    QIconEngine* clone() const override { return new SymbolIconEngine(symbol_); }

private:
    SymbolImage symbol_;
};

} // namespace

QIcon symbolIcon(const QString& name) {
    return QIcon(new SymbolIconEngine(SymbolImage(name)));
}

} // namespace platform
