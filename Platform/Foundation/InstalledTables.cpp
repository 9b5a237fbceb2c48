// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Foundation/InstalledTables.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <algorithm>

namespace platform {

namespace {

/// Compiled in as <module>.<language>.qm, each by the library whose texts it has.
QString tablesDirectory() {
    return QStringLiteral(":/Localization");
}

QString languageOf(const QString& tableName) {
    return tableName.section(QLatin1Char('.'), 1, 1);
}

bool serves(const QLocale& table, const QLocale& wanted) {
    return table.language() == wanted.language() && table.script() == wanted.script();
}

/// The entries that say which language is wanted, and do not merely repeat the one before in a
/// shorter form, or spell that shorter form out again.
QList<QLocale> wishes(const QStringList& preferred) {
    constexpr qsizetype longestBareCode = 3;
    QList<QLocale> result;
    QLocale previous = QLocale::c();
    bool isRepetition = false;
    for (const QString& identifier : preferred) {
        const QLocale locale(identifier);
        isRepetition = locale.language() == previous.language() &&
                       (isRepetition || identifier.size() <= longestBareCode);
        if (!isRepetition)
            result.push_back(locale);
        previous = locale;
    }
    return result;
}

} // namespace

InstalledTables::InstalledTables(const QStringList& preferredLanguages) {
    const QDir directory(tablesDirectory());
    const QStringList names = directory.entryList(QDir::Files, QDir::Name);
    QStringList available;
    std::ranges::transform(names, std::back_inserter(available), languageOf);
    language_ = choice(available, preferredLanguages);
    if (language_ == QLatin1String(sourceLanguage))
        return;
    installQtTable();
    for (const QString& name : names) {
        auto table = std::make_unique<QTranslator>();
        if (languageOf(name) == language_ && table->load(directory.filePath(name)))
            install(std::move(table));
    }
}

// A table that goes takes itself out of the application.
InstalledTables::~InstalledTables() = default;

QString InstalledTables::choice(const QStringList& available, const QStringList& preferred) {
    for (const QLocale& wanted : wishes(preferred)) {
        if (wanted.language() == QLocale::English)
            break;
        const auto table = std::ranges::find_if(available, [&wanted](const QString& identifier) {
            return serves(QLocale(identifier), wanted);
        });
        if (table != available.end())
            return *table;
    }
    return QString::fromLatin1(sourceLanguage);
}

void InstalledTables::installQtTable() {
    auto table = std::make_unique<QTranslator>();
    if (table->load(QLocale(language_), QStringLiteral("qtbase"), QStringLiteral("_"),
                    QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        install(std::move(table));
}

void InstalledTables::install(std::unique_ptr<QTranslator> table) {
    QCoreApplication::installTranslator(table.get());
    tables_.push_back(std::move(table));
}

} // namespace platform
