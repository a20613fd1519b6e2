#pragma once

#include "Support/TextUnits.h"

#include <QStringList>
#include <QStringView>

#include <vector>

namespace jotwell {

// Parameters in a text, told from a mere "$" by the exact name of a template; the first of the
// names that fits counts. Pure; any thread.

/// The parameters that stand behind two blanks, or behind one blank and a slash word that begins at
/// most 20 UTF-16 units before the "$". The number of the text's characters bounds the search in
/// UTF-16 units: behind many emoji a parameter at the end isn't found.
[[nodiscard]] std::vector<TextRange> highlightedTemplateRanges(QStringView text,
                                                               const QStringList& names);

/// The text without those parameters and the white space before each, and without the blanks around
/// what is left. Locations and lengths found in UTF-16 units are taken as numbers of characters.
[[nodiscard]] QString removeTemplateParameters(const QString& text, const QStringList& names);

/// Whether the text begins, behind blanks, with a "$" and a name, with white space or nothing
/// behind.
[[nodiscard]] bool checkForValidTemplate(QStringView text, const QStringList& names);

} // namespace jotwell
