#pragma once

#include <QString>
#include <QUuid>

#include <ostream>

// How GoogleTest words these types in a failure. A test program includes it in each of its sources
// or in none.

inline void PrintTo(const QString& text, std::ostream* out)
{
    constexpr qsizetype longest = 400;
    *out << '"' << text.left(longest).toStdString() << '"';
    if (text.size() > longest)
        *out << " and so on, " << text.size() << " units";
}

inline void PrintTo(const QByteArray& bytes, std::ostream* out)
{
    PrintTo(QString::fromUtf8(bytes), out);
}

inline void PrintTo(const QUuid& uuid, std::ostream* out)
{
    *out << uuid.toString().toStdString();
}
