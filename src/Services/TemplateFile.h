#pragma once

#include "Support/AtomicFile.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace jotwell {

/// The file of a synced template while the user edits its text. A version that others have put
/// there meanwhile is not lost: it is kept beside the file, as «Meeting (conflict).md» or, where
/// there is one, «Meeting (conflict 2).md», before the user's text takes its place. Any thread, one
/// at a time.
class TemplateFile {
public:
    /// `known` is the text that the user's edits begin with.
    TemplateFile(QString path, const QString& known, AtomicFile files);

    /// Saves `text`, also if the file has gone. Gives the path of the other version that was there,
    /// if there was one since the last success. On a failure the file is as it was.
    [[nodiscard]] Result<std::optional<QString>, SystemError> write(const QString& text);

private:
    [[nodiscard]] Result<std::optional<QString>, SystemError> keepOther(const QByteArray& stored);
    [[nodiscard]] QString freePathBeside() const;

    QString m_path;
    QByteArray m_known;            ///< what is in the file as far as we know
    std::optional<QString> m_kept; ///< another version, of which nobody has been told yet
    AtomicFile m_files;
};

} // namespace jotwell
