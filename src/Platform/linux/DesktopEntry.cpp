#include "Platform/linux/DesktopEntry.h"

#include <algorithm>

namespace jotwell {

namespace {

constexpr QByteArrayView mainGroup = "[Desktop Entry]";

// What a command line's argument can't hold outside of quotes, and what it has to escape in them.
constexpr QByteArrayView reserved = " \t\n\"'\\><~|&;$*?#()`";
constexpr QByteArrayView escapedInQuotes = "\"`$\\";

struct Escape {
    char written;
    char meant;
};

constexpr Escape escapes[] = {{'s', ' '}, {'n', '\n'}, {'t', '\t'}, {'r', '\r'}, {'\\', '\\'}};

std::optional<char> meaningOf(char written)
{
    for (const Escape& escape : escapes) {
        if (escape.written == written)
            return escape.meant;
    }
    return std::nullopt;
}

QByteArray unescaped(const QByteArray& written)
{
    QByteArray string;
    for (qsizetype at = 0; at < written.size(); ++at) {
        const auto meant = written[at] == '\\' && at + 1 < written.size()
                               ? meaningOf(written[at + 1])
                               : std::nullopt;
        string += meant.value_or(written[at]);
        at += meant ? 1 : 0;
    }
    return string;
}

QByteArray argument(const QByteArray& bytes)
{
    const bool needsQuotes =
        std::any_of(bytes.begin(), bytes.end(), [](char each) { return reserved.contains(each); });
    QByteArray word;
    for (const char each : bytes) {
        if (escapedInQuotes.contains(each))
            word += '\\';
        word += each;
        if (each == '%') // else it would stand for a file or the like
            word += '%';
    }
    return needsQuotes ? '"' + word + '"' : word;
}

} // namespace

DesktopEntry::DesktopEntry(const QByteArray& bytes)
{
    if (bytes.isEmpty())
        return;
    QByteArray group;
    for (const QByteArray& text : (bytes.endsWith('\n') ? bytes.chopped(1) : bytes).split('\n')) {
        const Kind kind = kindOf(text.trimmed(), !group.isEmpty());
        if (kind == Kind::group)
            group = text.trimmed();
        m_lines.append({kind, group == mainGroup, text});
    }
}

DesktopEntry::Kind DesktopEntry::kindOf(const QByteArray& text, bool isInAnyGroup)
{
    if (text.isEmpty())
        return Kind::blank;
    if (text.startsWith('#'))
        return Kind::comment;
    if (text.startsWith('['))
        return text.endsWith(']') ? Kind::group : Kind::malformed;
    return isInAnyGroup && text.indexOf('=') > 0 ? Kind::key : Kind::malformed;
}

QByteArray DesktopEntry::Line::key() const
{
    return text.first(text.indexOf('=')).trimmed();
}

QByteArray DesktopEntry::Line::value() const
{
    return text.sliced(text.indexOf('=') + 1).trimmed();
}

bool DesktopEntry::Line::isOf(QByteArrayView wanted) const
{
    return kind == Kind::key && isInMainGroup && key() == wanted;
}

bool DesktopEntry::hasMainGroup() const
{
    return std::any_of(m_lines.begin(), m_lines.end(),
                       [](const Line& line) { return line.isInMainGroup; });
}

bool DesktopEntry::isWellFormed() const
{
    return hasMainGroup() && std::none_of(m_lines.begin(), m_lines.end(), [](const Line& line) {
               return line.kind == Kind::malformed;
           });
}

bool DesktopEntry::hasNothingBut(const QByteArrayList& keys) const
{
    return std::all_of(m_lines.begin(), m_lines.end(), [&](const Line& line) {
        if (line.kind == Kind::key)
            return line.isInMainGroup && keys.contains(line.key());
        return line.kind == Kind::blank || (line.kind == Kind::group && line.isInMainGroup);
    });
}

std::optional<QByteArray> DesktopEntry::value(QByteArrayView key) const
{
    const auto found = std::find_if(m_lines.rbegin(), m_lines.rend(),
                                    [key](const Line& line) { return line.isOf(key); });
    return found == m_lines.rend() ? std::nullopt : std::optional(found->value());
}

QByteArray DesktopEntry::string(QByteArrayView key) const
{
    return unescaped(value(key).value_or(QByteArray()));
}

std::optional<QByteArrayList> DesktopEntry::list(QByteArrayView key) const
{
    const auto written = value(key);
    return written ? std::optional(written->split(';')) : std::nullopt;
}

bool DesktopEntry::isTrue(QByteArrayView key) const
{
    const auto written = value(key);
    return written == "true" || written == "1";
}

bool DesktopEntry::isFalse(QByteArrayView key) const
{
    const auto written = value(key);
    return written == "false" || written == "0";
}

void DesktopEntry::set(const QByteArray& key, const QByteArray& value)
{
    const Line line{Kind::key, true, key + '=' + value};
    const auto known = std::find_if(m_lines.begin(), m_lines.end(),
                                    [&](const Line& each) { return each.isOf(key); });
    const qsizetype at = known == m_lines.end() ? endOfMainGroup() : known - m_lines.begin();
    remove(key); // the first of them was at `at`: none before it goes
    m_lines.insert(at, line);
}

qsizetype DesktopEntry::endOfMainGroup()
{
    if (!hasMainGroup())
        m_lines.append({Kind::group, true, mainGroup.toByteArray()});
    // Behind the group's last key, or its name: what stands below belongs to the next one.
    const auto last = std::find_if(m_lines.rbegin(), m_lines.rend(), [](const Line& line) {
        return line.isInMainGroup && (line.kind == Kind::key || line.kind == Kind::group);
    });
    return m_lines.rend() - last;
}

void DesktopEntry::remove(QByteArrayView key)
{
    m_lines.removeIf([key](const Line& line) { return line.isOf(key); });
}

void DesktopEntry::commentOutMalformedLines()
{
    for (Line& line : m_lines) {
        if (line.kind == Kind::malformed)
            line = {Kind::comment, line.isInMainGroup, "# " + line.text};
    }
}

QByteArray DesktopEntry::bytes() const
{
    QByteArray bytes;
    for (const Line& line : m_lines)
        bytes += line.text + '\n';
    return bytes;
}

QByteArray DesktopEntry::escaped(const QByteArray& string)
{
    QByteArray written;
    for (qsizetype at = 0; at < string.size(); ++at) {
        const char each = string[at];
        // A blank is one only at the ends, where a reader may trim it.
        const bool isInside = at > 0 && at + 1 < string.size();
        const auto escape = std::find_if(std::begin(escapes), std::end(escapes),
                                         [each](const Escape& one) { return one.meant == each; });
        if (escape == std::end(escapes) || (each == ' ' && isInside))
            written += each;
        else
            (written += '\\') += escape->written;
    }
    return written;
}

QByteArray DesktopEntry::commandLine(const QByteArray& program)
{
    // A program's own name can't hold these, or desktops take them for something else; an argument
    // of the shell's can.
    const bool needsShell = program.contains('%') || program.contains('=');
    const QByteArray shell = needsShell ? R"(/bin/sh -c "exec \"\$0\"" )" : "";
    return escaped(shell + argument(program));
}

} // namespace jotwell
