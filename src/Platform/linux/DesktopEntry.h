#pragma once

#include <QByteArray>
#include <QByteArrayList>

#include <optional>

namespace jotwell {

/// A desktop entry file, line by line: what isn't asked for, comments and other groups among it,
/// stays as it is. Keys are those of the group "Desktop Entry"; values are in their written form.
class DesktopEntry {
public:
    explicit DesktopEntry(const QByteArray& bytes = {});

    /// Whether every line has a meaning: a desktop may refuse a whole file for one that hasn't.
    [[nodiscard]] bool isWellFormed() const;
    /// Whether there are no other keys, groups or comments.
    [[nodiscard]] bool hasNothingBut(const QByteArrayList& keys) const;

    [[nodiscard]] std::optional<QByteArray> value(QByteArrayView key) const;
    /// The value with its escapes resolved; empty if there is none.
    [[nodiscard]] QByteArray string(QByteArrayView key) const;
    /// The elements of a list; none if the key isn't there.
    [[nodiscard]] std::optional<QByteArrayList> list(QByteArrayView key) const;
    [[nodiscard]] bool isTrue(QByteArrayView key) const;
    [[nodiscard]] bool isFalse(QByteArrayView key) const;

    /// Gives the key that value and no other, at the place that it has or behind the last one.
    void set(const QByteArray& key, const QByteArray& value);
    void remove(QByteArrayView key);
    /// Keeps what has no meaning as comments.
    void commentOutMalformedLines();

    [[nodiscard]] QByteArray bytes() const;

    /// The written form of a string.
    [[nodiscard]] static QByteArray escaped(const QByteArray& string);
    /// The written form of a command line of that program alone.
    [[nodiscard]] static QByteArray commandLine(const QByteArray& program);

private:
    enum class Kind { blank, comment, group, key, malformed };

    struct Line {
        Kind kind;
        bool isInMainGroup;
        QByteArray text;

        [[nodiscard]] QByteArray key() const;
        [[nodiscard]] QByteArray value() const;
        [[nodiscard]] bool isOf(QByteArrayView wanted) const;
    };

    [[nodiscard]] static Kind kindOf(const QByteArray& text, bool isInAnyGroup);
    [[nodiscard]] bool hasMainGroup() const;
    [[nodiscard]] qsizetype endOfMainGroup();

    QList<Line> m_lines;
};

} // namespace jotwell
