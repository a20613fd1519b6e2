#pragma once

#include "Models/ObsidianTemplate.h"
#include "Platform/Clock.h"

#include <QString>
#include <QStringList>

namespace jotwell {

// The way from the text of the capture window to a note. Pure; any thread.

/// The note in the text: without the first "/new_note", without the parameter of the first of
/// `templateNames` that is found behind a "$", and without white space at both ends.
[[nodiscard]] QString extractContent(const QString& text, const QStringList& templateNames);

/// The first line as it stands, or "Note " and the time of day if that is empty.
[[nodiscard]] QString generateTitle(const QString& content, Clock::TimePoint now);

/// The template with its placeholders filled: title, content, date, one after the other, so that a
/// later placeholder is filled within an earlier one's text too.
[[nodiscard]] QString createNoteContent(const QString& title, const QString& content,
                                        const ObsidianTemplate& noteTemplate, Clock::TimePoint now);

/// "<title> - <date and time to the second>.md", with what file systems forbid made "-".
[[nodiscard]] QString generateFilename(const QString& title, Clock::TimePoint now);

} // namespace jotwell
