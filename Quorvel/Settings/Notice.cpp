// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Settings/Notice.h"

#include "Platform/Appearance/SymbolImage.h"
#include "Quorvel/Settings/FormFonts.h"

#include <QHBoxLayout>
#include <QPainter>

namespace quorvel {

using platform::MessageLine;

namespace {

constexpr int signSize = 14;
constexpr int signSpacing = 6;

} // namespace

Notice::Notice(MessageLine::Kind kind, QWidget* parent)
    : QWidget(parent), line_(new MessageLine(kind, FormFonts::caption, this)) {
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(signSize + signSpacing, 0, 0, 0);
    layout->addWidget(line_);
}

void Notice::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const double drop = (line_->fontMetrics().height() - signSize) / 2.0;
    platform::SymbolImage(QStringLiteral("exclamation-triangle"))
        .paint(painter,
               QRectF(line_->x() - signSize - signSpacing, line_->y() + drop, signSize, signSize),
               line_->palette().color(QPalette::WindowText));
}

void setMessage(platform::Reveal& reveal, Notice& notice, const std::optional<QString>& message) {
    // The text stays while it goes.
    if (message)
        notice.setText(*message);
    reveal.setRevealed(message.has_value());
}

} // namespace quorvel
