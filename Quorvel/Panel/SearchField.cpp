#include "Quorvel/Panel/SearchField.h"

#include "Platform/Desktop/SystemFonts.h"
#include "Platform/Foundation/StringTable.h"

namespace quorvel {

namespace {

constexpr int fontSize = 13;

} // namespace

SearchField::SearchField(AppModel& model, QWidget* parent) : TextField(parent) {
    const QString prompt = platform::localized("Quorvel", "Search coins, e.g. BTC");
    setObjectName(QStringLiteral("search"));
    setPlaceholderText(prompt);
    setAccessibleName(prompt);
    setFont(platform::systemFont(fontSize));
    setText(model.searchQuery());
    connect(this, &QLineEdit::textChanged, &model, &AppModel::setSearchQuery);
    connect(&model, &AppModel::searchQueryChanged, this, [this, &model] {
        if (text() != model.searchQuery())
            setText(model.searchQuery());
    });
}

} // namespace quorvel
