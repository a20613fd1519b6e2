#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace jotwell {

/// Finds one text in others regardless of case: a text holds the term exactly if its lower-case
/// form holds the term's. Texts are valid UTF-8 and searched as they lie, many bytes at a time.
/// Immutable: any thread.
class LowercaseMatcher {
public:
    explicit LowercaseMatcher(const QString& term);

    /// True for an empty term.
    [[nodiscard]] bool isIn(QByteArrayView text) const;

private:
    QByteArray m_term; ///< lower-case UTF-8
};

} // namespace jotwell
