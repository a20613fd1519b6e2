#pragma once

#include <QHash>
#include <QList>
#include <QString>

#include <cstdint>
#include <vector>

namespace jotwell {

/// A tag and the number of notes that hold it.
struct TagCount {
    QString tag;
    qsizetype count = 0;

    bool operator==(const TagCount&) const = default;
};

/// How many notes each tag has, in rows that can be gone through at each key stroke: 100,000 tags
/// in a millisecond. Main thread.
class TagCounts {
public:
    /// None removes the tag.
    void set(const QString& tag, qsizetype count);

    // The first `limit` of each, those of most notes first, equal ones by code point.

    [[nodiscard]] QList<TagCount> all(qsizetype limit) const;
    /// Those that begin with `prefix`, but for the empty tag; the tag of that name before the rest.
    [[nodiscard]] QList<TagCount> beginningWith(const QString& prefix, qsizetype limit) const;

private:
    /// The first four UTF-16 units of a tag, the first one on top.
    using Head = std::uint64_t;

    struct Candidate {
        qsizetype rank;
        Head head;
        std::size_t place;
    };

    static constexpr qsizetype headLength = 4;
    static constexpr int unitBits = 16;

    [[nodiscard]] static Head headOf(QStringView tag);
    [[nodiscard]] bool precedes(const Candidate& left, const Candidate& right) const;
    [[nodiscard]] std::vector<Candidate> candidates(const QString& prefix) const;
    [[nodiscard]] QList<TagCount> firstOf(std::vector<Candidate> found, qsizetype limit) const;
    void remove(const QString& tag);

    // One row each, as most of them are passed over by their heads.
    std::vector<Head> m_heads;
    std::vector<qsizetype> m_counts;
    std::vector<QString> m_tags;
    QHash<QString, std::size_t> m_places; ///< of each tag in the rows
};

} // namespace jotwell
