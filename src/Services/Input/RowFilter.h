#pragma once

#include "Models/Command.h"
#include "Models/FolderItem.h"
#include "Models/HashtagItem.h"
#include "Models/ObsidianTemplate.h"
#include "Services/Index/NoteIndex.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace jotwell {

// The rows of the lists for what has been typed. Upper and lower case don't matter. Pure; any
// thread.

/// What is searched for by a partial token: the token without its first character.
[[nodiscard]] QString searchIn(const QString& partialToken);

/// Those that hold `input` without its first character; all of them if it is one character.
[[nodiscard]] QList<Command> matchingCommands(const QString& input);

/// Those whose name holds `search` anywhere.
[[nodiscard]] ObsidianTemplates matchingTemplates(const ObsidianTemplates& all,
                                                  const QString& search);
/// The rows of those folders whose name holds `search` anywhere.
[[nodiscard]] QList<FolderItem> matchingFolders(const QStringList& names, const QString& search);

/// So many tags are listed.
inline constexpr qsizetype hashtagRowLimit = 20;
[[nodiscard]] QList<HashtagItem> hashtagRows(const QList<TagCount>& tags);

} // namespace jotwell
