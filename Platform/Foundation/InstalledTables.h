// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

#include <memory>
#include <vector>

class QTranslator;

namespace platform {

/// The tables of translations in force, where `localized` looks: from construction to destruction,
/// those of every module of the program that has one in the chosen language, and Qt's own in that
/// language where the machine has them.
///
/// One at a time, made before any text is and after the application object, which outlives it. Main
/// thread. Numbers are not its matter: they read the same in every language.
class InstalledTables {
public:
    /// What texts in code are written in; it needs no table.
    static constexpr const char* sourceLanguage = "en";

    /// @param preferredLanguages identifiers such as "zh-Hans" or "de-AT", best first
    explicit InstalledTables(const QStringList& preferredLanguages);
    ~InstalledTables();
    InstalledTables(const InstalledTables&) = delete;
    InstalledTables& operator=(const InstalledTables&) = delete;

    /// The identifier of the language in force.
    const QString& language() const { return language_; }

    /// The first of `preferred` that is English or that one of `available` serves, as named there;
    /// else `sourceLanguage`.
    ///
    /// A table serves its language in every region where it is written in the same script: one for
    /// "zh-Hans" serves "zh-CN", "zh-SG" and "zh", but not "zh-TW". A bare "zh" behind another form
    /// of Chinese does not count: it is that form with its end cut off, as lists of languages have
    /// it, and not a wish for the form that most people write.
    static QString choice(const QStringList& available, const QStringList& preferred);

private:
    /// For the texts that Qt has itself: the menus of text fields, and file and network errors.
    void installQtTable();
    void install(std::unique_ptr<QTranslator> table);

    QString language_;
    std::vector<std::unique_ptr<QTranslator>> tables_;
};

} // namespace platform
