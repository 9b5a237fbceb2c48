// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Settings/Notice.h"

#include "Platform/Appearance/SymbolImage.h"
#include "Quorvel/Settings/FormFonts.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QStyle>

namespace quorvel {

namespace {

constexpr int signSize = 14;
constexpr int signSpacing = 6;

} // namespace

Notice::Notice(platform::Label::Tone tone, QWidget* parent)
    : QWidget(parent), line_(new platform::Label(tone, FormFonts::caption, this)) {
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(signSize + signSpacing, 0, 0, 0);
    layout->addWidget(line_);
    hide();
}

void Notice::setMessage(const std::optional<QString>& message) {
    line_->setMessage(message);
    setVisible(message.has_value());
}

void Notice::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const double drop = (line_->fontMetrics().height() - signSize) / 2.0;
    const QRectF sign = QStyle::visualRect(
        layoutDirection(), rect(),
        QRect(contentsRect().left(), line_->y() + qRound(drop), signSize, signSize));
    platform::SymbolImage(QStringLiteral("exclamation-triangle"))
        .paint(painter, sign, line_->palette().color(QPalette::WindowText));
}

} // namespace quorvel
