// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>

#include <optional>

namespace platform {

/// The main group of a desktop entry, for reading and changing keys. All else in the text stays as
/// it is: comments, other keys and groups, and their order.
///
/// The forms are those of the Desktop Entry Specification 1.5.
class DesktopEntry {
public:
    /// @param text a whole file; one without the main group gets it with the first `set`
    explicit DesktopEntry(const QByteArray& text);

    /// The value as it is written, escapes and all, without blanks around it; absent without the
    /// key. Of several the last counts.
    std::optional<QByteArray> value(QByteArrayView key) const;

    /// Sets a value, given as it is to be written, in the place of the present one; at the end of
    /// the group where there is none.
    void set(QByteArrayView key, const QByteArray& value);

    void remove(QByteArrayView key);

    /// The whole file.
    QByteArray text() const { return lines_.join('\n'); }

    /// A text as the value of a key.
    static QByteArray escaped(const QString& text);

    /// The text that a value stands for.
    static QString unescaped(const QByteArray& value);

    /// The value of `Exec` that starts a program without arguments, whatever characters its path
    /// has.
    static QByteArray commandLine(QString program);

private:
    struct Range {
        qsizetype begin; ///< the line after the group's header
        qsizetype end;   ///< the line after its last
    };

    std::optional<Range> mainGroup() const;
    std::optional<qsizetype> lastLineOf(QByteArrayView key) const;

    QList<QByteArray> lines_;
};

} // namespace platform
