#include "Quorvel/Panel/SearchField.h"

#include "Platform/Desktop/ControlMarks.h"
#include "Platform/Desktop/SystemColors.h"
#include "Platform/Desktop/SystemFonts.h"
#include "Platform/Foundation/StringTable.h"

#include <QPainter>

namespace quorvel {

namespace {

constexpr int fieldHeight = 28;
constexpr int fontSize = 13;
constexpr int textInset = 6; // and the two points that a line edit adds

} // namespace

SearchField::SearchField(AppModel& model, QWidget* parent) : QLineEdit(parent) {
    const QString prompt = platform::localized("Quorvel", "Search coins, e.g. BTC");
    setObjectName(QStringLiteral("search"));
    setPlaceholderText(prompt);
    setAccessibleName(prompt);
    setFont(platform::systemFont(fontSize));
    setFrame(false);
    setTextMargins(textInset, 0, textInset, 0);
    setFixedHeight(fieldHeight);
    // The background is painted below, rounded.
    QPalette transparent;
    transparent.setColor(QPalette::Base, Qt::transparent);
    setPalette(transparent);
    setText(model.searchQuery());
    connect(this, &QLineEdit::textChanged, &model, &AppModel::setSearchQuery);
    connect(&model, &AppModel::searchQueryChanged, this, [this, &model] {
        if (text() != model.searchQuery())
            setText(model.searchQuery());
    });
}

QSize SearchField::sizeHint() const {
    return {0, fieldHeight};
}

void SearchField::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        const auto colors = platform::SystemColors::of(palette());
        platform::ControlMarks::paintFill(painter, rect(), colors.field);
        if (hasFocus())
            platform::ControlMarks::paintFocus(painter, rect(), colors.accent);
    }
    QLineEdit::paintEvent(event);
}

} // namespace quorvel
