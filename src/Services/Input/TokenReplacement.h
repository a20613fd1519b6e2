#pragma once

#include "Models/Command.h"
#include "Support/TextUnits.h"

#include <QString>
#include <QStringList>

namespace jotwell {

// Putting a token into a text in place of another. Pure; any thread.

/// How the token came to be replaced: the user clicked it, or is typing it at the text's end.
enum class TokenOrigin { clicked, typed };

/// A token and the text around it.
struct TokenCut {
    QString before;
    QString token;
    QString after;

    bool operator==(const TokenCut&) const = default;
};

/// The part of `range` that lies in the text, without halves of surrogate pairs; where the text
/// ends before the range, the empty range at its end.
[[nodiscard]] TextRange clamped(const TextRange& range, QStringView text);

/// The token that stands in `range`, in UTF-16 units, clamped.
[[nodiscard]] TokenCut cutAt(const QString& text, const TextRange& range);
/// The token with which the text ends.
[[nodiscard]] TokenCut cutAtEnd(const QString& text, const QString& token);

/// Whether the command that is being replaced belongs to a new note.
[[nodiscard]] bool leavesNewNote(const TokenCut& cut, TokenOrigin origin);

// The text with a command in place of the token, blanks at its ends included.

/// Gives the template as parameter unless the text behind begins with one of `names`.
[[nodiscard]] QString newNoteText(const TokenCut& cut, const QString& templateName,
                                  const QStringList& names);
/// For a command that takes the place of a new note: template parameters go.
[[nodiscard]] QString leavingText(const TokenCut& cut, TokenOrigin origin, Command command,
                                  const QStringList& names);
[[nodiscard]] QString searchNotesText(const TokenCut& cut);
[[nodiscard]] QString recentNotesText(const TokenCut& cut, const QString& folderName);

} // namespace jotwell
